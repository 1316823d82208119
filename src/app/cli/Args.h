#pragma once
// A command's own words: options are taken out as the command asks for them,
// and what is left are its positional words.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli/CommandError.h"

namespace zonara {

class Args {
  public:
    // `command` names the command in the hint that follows an unknown option.
    explicit Args(std::vector<std::string> words, std::string_view command = {})
        : rest(std::move(words)), command(command) {}

    // Takes "--name" out; true when it was there.
    bool flag(std::string_view name);
    // Takes "--name VALUE" or "--name=VALUE" out. Given twice, or without a
    // value (at the end, or followed by another option), it is an error that
    // words() reports.
    std::optional<std::string> option(std::string_view name);
    // Takes every occurrence of a repeatable option out, in order.
    std::vector<std::string> options(std::string_view name);

    // Takes the first word out when it is not an option: the word that picks
    // a command's sub-command, before the sub-command takes its options.
    std::optional<std::string> firstWord();

    // The positional words once every option was taken, or the first problem
    // met: a bad option above, or an option the command does not know. "--"
    // makes every word after it positional.
    Expected<std::vector<std::string>> words();

  private:
    CommandError unknownOption(const std::string& word) const;

    std::vector<std::string> rest;
    std::string_view command;
    std::vector<std::string_view> asked; // the options the command knows
    std::optional<CommandError> problem;
};

// True for "--name" and "--name=VALUE".
bool isOptionWord(std::string_view word, std::string_view name);
// The value of the option at words[i] ("--name=VALUE", or the next word);
// advances i past what it took. Nothing when the value is missing.
std::optional<std::string> takeOptionValue(const std::vector<std::string>& words, std::size_t& i,
                                           std::string_view name);

} // namespace zonara

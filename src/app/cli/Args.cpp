#include "app/cli/Args.h"

#include "cities/NameDistance.h"
#include "core/Text.h"

namespace zonara {

namespace {

// "-5" is a number, not an option.
bool looksLikeOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-' && (word[1] < '0' || word[1] > '9');
}

} // namespace

bool isOptionWord(std::string_view word, std::string_view name) {
    return word.starts_with(name) && (word.size() == name.size() || word[name.size()] == '=');
}

std::optional<std::string> takeOptionValue(const std::vector<std::string>& words, std::size_t& i,
                                           std::string_view name) {
    const std::string& word = words[i];
    if (word.size() > name.size()) {
        return word.substr(name.size() + 1);
    }
    // An option right after is a forgotten value, not a value that looks odd.
    if (i + 1 >= words.size() || words[i + 1].starts_with("--")) {
        return std::nullopt;
    }
    return words[++i];
}

CommandError Args::unknownOption(const std::string& word) const {
    std::string message = "unknown option '" + word + "'";
    const std::string_view typed = std::string_view(word).substr(0, word.find('='));
    std::size_t best = 3; // more edits than this is not a misspelling
    std::string_view closest;
    for (const std::string_view name : asked) {
        const std::size_t edits = nameDistance(toUtf16(typed), toUtf16(name)).whole;
        if (edits < best) {
            best = edits;
            closest = name;
        }
    }
    if (!closest.empty()) {
        message += "; did you mean " + std::string(closest) + "?";
    } else if (!command.empty()) {
        message += "; 'zonara " + std::string(command) + " --help' lists the options";
    }
    return fail(message);
}

bool Args::flag(std::string_view name) {
    asked.push_back(name);
    for (auto it = rest.begin(); it != rest.end(); ++it) {
        if (*it == "--") {
            break;
        }
        if (*it == name) {
            rest.erase(it);
            return true;
        }
    }
    return false;
}

std::optional<std::string> Args::option(std::string_view name) {
    std::vector<std::string> all = options(name);
    if (all.size() > 1 && !problem) {
        problem = fail(std::string(name) + " is given more than once");
    }
    if (all.empty()) {
        return std::nullopt;
    }
    return all.back();
}

std::vector<std::string> Args::options(std::string_view name) {
    asked.push_back(name);
    std::vector<std::string> values;
    std::vector<std::string> left;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (rest[i] == "--") {
            left.insert(left.end(), rest.begin() + std::ptrdiff_t(i), rest.end());
            break;
        }
        if (!isOptionWord(rest[i], name)) {
            left.push_back(rest[i]);
        } else if (auto value = takeOptionValue(rest, i, name)) {
            values.push_back(*value);
        } else if (!problem) {
            problem = fail(std::string(name) + " needs a value");
        }
    }
    rest = std::move(left);
    return values;
}

std::optional<std::string> Args::firstWord() {
    if (rest.empty() || looksLikeOption(rest.front()) || rest.front() == "--") {
        return std::nullopt;
    }
    std::string word = std::move(rest.front());
    rest.erase(rest.begin());
    return word;
}

Expected<std::vector<std::string>> Args::words() {
    if (problem) {
        return *problem;
    }
    std::vector<std::string> result;
    bool onlyPositionals = false;
    for (const std::string& word : rest) {
        if (!onlyPositionals && word == "--") {
            onlyPositionals = true;
        } else if (!onlyPositionals && looksLikeOption(word)) {
            return unknownOption(word);
        } else {
            result.push_back(word);
        }
    }
    rest.clear();
    return result;
}

} // namespace zonara

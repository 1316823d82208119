#pragma once
// The command line: global options, subcommand arguments and the run context.

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ClockSource.h"
#include "core/Paths.h"

namespace zonara {

struct GlobalOptions {
    std::optional<std::filesystem::path> root;
    std::optional<SystemTime> at;
    int screenWidth = 480;
    int screenHeight = 640;
    bool tsv = false;
    bool secondDisplay = false;
};

// A subcommand's own arguments; options are taken out as they are asked for.
class Args {
  public:
    explicit Args(std::vector<std::string> words) : words(std::move(words)) {}

    // Takes "--name" out; true when it was there.
    bool flag(std::string_view name);
    // Takes "--name VALUE" or "--name=VALUE" out; a missing value is an error.
    std::optional<std::string> option(std::string_view name);
    // Takes every occurrence of a repeatable option out, in order.
    std::vector<std::string> options(std::string_view name);
    // What is left once all options were taken: the positional words. An
    // unknown option left over is an error.
    std::vector<std::string> positionals();

    bool ok() const { return problem.empty(); }
    const std::string& error() const { return problem; }

  private:
    std::vector<std::string> words;
    std::string problem;
};

struct CommandContext {
    GlobalOptions options;
    Paths paths;
    ClockSource clock;
    std::ostream& out;
    std::ostream& err;
};

using CommandFn = int (*)(CommandContext&, Args&);

struct Subcommand {
    std::string_view name;
    std::string_view usage;   // the words after "zonara NAME"
    std::string_view summary; // one line for the list of commands
    std::string_view help;    // what --help prints after the usage line
    CommandFn run;
};

// Runs "zonara ARGS..." without the window; returns the exit code.
int runCommandLine(const std::vector<std::string>& argv, std::ostream& out, std::ostream& err);

// The result of the global options: what is left is the subcommand and its words.
struct ParsedCommandLine {
    GlobalOptions options;
    std::vector<std::string> rest;
    bool help = false;
    std::string error;
};
ParsedCommandLine parseGlobalOptions(const std::vector<std::string>& argv);

// "WxH" into width and height; nothing for anything else.
std::optional<std::pair<int, int>> parseScreenSize(std::string_view text);

} // namespace zonara

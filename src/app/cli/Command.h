#pragma once
// One command of the command line: its name, its help texts and what runs it.

#include <iosfwd>
#include <string_view>

#include "app/cli/Args.h"
#include "app/cli/CommandError.h"

namespace zonara {

class CommandContext;

struct Command {
    std::string_view name;
    std::string_view usage;   // the words after "zonara NAME"
    std::string_view summary; // one line for the list of commands
    std::string_view help;    // what the help prints after the usage line
    Outcome (*run)(CommandContext& ctx, Args& args) = nullptr;
    bool needsRoot = true; // false: runs even when the root folder cannot be found
};

// "Usage: zonara NAME USAGE", a blank line and the help text.
void printCommandHelp(const Command& command, std::ostream& out);

} // namespace zonara

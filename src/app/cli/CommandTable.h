#pragma once
// Every command of the command line, in the order the help lists them.

#include <iosfwd>
#include <span>
#include <string_view>

#include "app/cli/Command.h"

namespace zonara {

std::span<const Command* const> commandTable();
// The program's usage, its global options and one line for each command.
void printGeneralHelp(std::ostream& out);
const Command* commandNamed(std::string_view name);

} // namespace zonara

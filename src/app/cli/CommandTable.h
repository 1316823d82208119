#pragma once
// Every command of the command line, in the order the help lists them.

#include <span>
#include <string_view>

#include "app/cli/Command.h"

namespace zonara {

std::span<const Command* const> commandTable();
const Command* commandNamed(std::string_view name);

} // namespace zonara

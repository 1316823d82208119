#pragma once
// The subcommands of zonara, one function each, and their table.

#include <span>
#include <string_view>

#include "app/CommandLine.h"

namespace zonara {

int runNow(CommandContext& ctx, Args& args);
int runTime(CommandContext& ctx, Args& args);
int runCities(CommandContext& ctx, Args& args);
int runFind(CommandContext& ctx, Args& args);
int runSlot(CommandContext& ctx, Args& args);
int runSettings(CommandContext& ctx, Args& args);
int runSkins(CommandContext& ctx, Args& args);
int runSun(CommandContext& ctx, Args& args);
int runMoon(CommandContext& ctx, Args& args);
int runRenderClock(CommandContext& ctx, Args& args);
int runRender(CommandContext& ctx, Args& args);

std::span<const Subcommand> subcommands();
const Subcommand* findSubcommand(std::string_view name);

} // namespace zonara

#pragma once
// What render draws of the globe and the multi-clock page.

#include "app/cli/Args.h"
#include "app/cli/CommandError.h"

namespace zonara {

class CommandContext;

// render globe --out FILE.png [--slot N] [--scroll N] [--map]
Outcome drawGlobe(CommandContext& ctx, Args& args);
// render multi --out FILE.png
Outcome drawMultiClock(CommandContext& ctx, Args& args);

} // namespace zonara

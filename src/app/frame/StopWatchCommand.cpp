// "Stop Watch": the stopwatch on the clock source's tick count.

#include "app/frame/FrameHandlers.h"
#include "tools/CStopWatch.h"

namespace zonara {

FrameResult stopWatchCommand(FrameContext& ctx) {
    CStopWatch dialog(ctx.clock, ctx.profile, ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

// "Metric": the unit converter.

#include "app/frame/FrameHandlers.h"
#include "tools/CMetricCalc2.h"

namespace zonara {

FrameResult metricCommand(FrameContext& ctx) {
    CMetricCalc2 dialog(ctx.profile, ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

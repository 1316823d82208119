// The commands the frame carries out itself: views, the 24-hour clock, exit.

#include "app/frame/FrameHandlers.h"
#include "app/frame/FrameViews.h"

namespace zonara {

FrameResult showViewCommand(FrameContext& ctx) {
    const FrameView* view = viewByCommand(ctx.command);
    return view != nullptr ? FrameResult{FrameOutcome::ShowView, view->view} : FrameResult{};
}

// Toggled twice, the setting is as it was; the toggle alone saves nothing.
FrameResult twentyFourHourCommand(FrameContext& ctx) {
    ctx.settings.use24Hour = ctx.settings.use24Hour != 0 ? 0 : 1;
    return {FrameOutcome::Refresh};
}

FrameResult exitCommand(FrameContext&) {
    return {FrameOutcome::Exit};
}

} // namespace zonara

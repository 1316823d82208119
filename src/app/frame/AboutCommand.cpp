// "About": the program's name, version and credits.

#include "app/AboutDialog.h"
#include "app/frame/FrameHandlers.h"

namespace zonara {

FrameResult aboutCommand(FrameContext& ctx) {
    AboutDialog dialog(ctx.profile, ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

// "Update Data": the data update dialog; new world files make the frame rebuild.

#include "app/frame/FrameHandlers.h"
#include "net/CUpdateDlg.h"

namespace zonara {

FrameResult updateDataCommand(FrameContext& ctx) {
    CUpdateDlg dialog(ctx.paths, ctx.config, ctx.profile, ctx.window);
    ctx.services.runDialog(dialog);
    if (!dialog.dataInstalled())
        return {};
    return {FrameOutcome::DataChanged};
}

} // namespace zonara

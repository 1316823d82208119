// "Full Clock Skin": the skin chooser. Its menu item is gone, the command stays.

#include <QDialog>

#include "app/frame/FrameHandlers.h"
#include "clocks/CSkinSetup.h"
#include "core/Text.h"

namespace zonara {

FrameResult skinCommand(FrameContext& ctx) {
    CSkinSetup dialog(ctx.paths, ctx.profile, toUtf8(ctx.settings.skinFile), ctx.window);
    if (ctx.services.runDialog(dialog) != QDialog::Accepted || !dialog.skinChanged())
        return {};
    ctx.settings.skinFile = toUtf16(dialog.chosenSkin());
    return {FrameOutcome::SkinChanged};
}

} // namespace zonara

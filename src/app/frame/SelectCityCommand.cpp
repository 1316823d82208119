// "Select City": the city selection for the selected slot.

#include <QDialog>

#include "app/frame/FrameHandlers.h"
#include "cities/CCitySelection.h"

namespace zonara {

FrameResult selectCityCommand(FrameContext& ctx) {
    const std::size_t slot = ctx.slot();
    CCitySelection dialog(ctx.catalog, int(slot), ctx.settings.slots[slot], ctx.profile,
                          ctx.window);
    if (ctx.services.runDialog(dialog) != QDialog::Accepted || !dialog.chosen())
        return {};
    ctx.settings.slots[slot].Assign(dialog.chosen()->country, dialog.chosen()->city);
    return {FrameOutcome::SettingsChanged};
}

} // namespace zonara

// "City Details": the selected slot's city, from which the airport list is reached.

#include <QDialog>

#include "app/frame/FrameHandlers.h"
#include "cities/AirportList.h"
#include "cities/CCityDetails.h"

namespace zonara {

FrameResult cityDetailsCommand(FrameContext& ctx) {
    ClockSlot& slot = ctx.settings.slots[ctx.slot()];
    CCityDetails dialog(slot, ctx.clock.utcNow(), ctx.rules, ctx.paths.dataFile(airportFileName),
                        ctx.profile, ctx.window, ctx.services.runDialog);
    ctx.services.runDialog(dialog);
    if (!dialog.airportChosen())
        return {};
    slot.stationCode = dialog.city().stationCode;
    return {FrameOutcome::SettingsChanged};
}

} // namespace zonara

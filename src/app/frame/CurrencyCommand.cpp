// "Curreny Conversion": the currency converter with its rates refresh.

#include "app/frame/FrameHandlers.h"
#include "net/CCurrencyCalc2Dlg.h"
#include "net/CurrencyLastUpdate.h"

namespace zonara {

FrameResult currencyCommand(FrameContext& ctx) {
    CurrencyRefreshSetup refresh;
    refresh.clock = ctx.clock;
    refresh.utcOffsetMinutes = systemUtcOffsetMinutes;
    CCurrencyCalc2Dlg dialog(ctx.paths, ctx.profile, std::move(refresh), ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

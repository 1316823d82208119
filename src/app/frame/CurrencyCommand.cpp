// "Curreny Conversion": the currency converter with its rates refresh.

#include "app/frame/FrameHandlers.h"
#include "net/CCurrencyCalc2Dlg.h"
#include "net/CurrencyTransfer.h"

namespace zonara {

FrameResult currencyCommand(FrameContext& ctx) {
    CCurrencyCalc2Dlg dialog(ctx.paths, ctx.profile,
                             currencyRefreshSetup(ctx.paths, ctx.config, ctx.clock), ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

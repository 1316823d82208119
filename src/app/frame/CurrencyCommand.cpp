// "Curreny Conversion": the currency converter with its rates refresh.

#include "app/frame/FrameHandlers.h"
#include "net/CCurrencyCalc2Dlg.h"
#include "net/Config.h"
#include "net/CurrencyTransfer.h"

namespace zonara {

FrameResult currencyCommand(FrameContext& ctx) {
    // Read when the dialog opens, so an edited zonara.ini counts at once;
    // its warnings are the start's to report.
    const Config config = readConfig(configFile(ctx.paths)).config;
    CCurrencyCalc2Dlg dialog(ctx.paths, ctx.profile,
                             currencyRefreshSetup(ctx.paths, config, ctx.clock), ctx.window);
    ctx.services.runDialog(dialog);
    return {};
}

} // namespace zonara

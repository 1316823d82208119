#include "app/frame/WeatherWindow.h"

#include "net/CWeatherDlg.h"
#include "net/WeatherSettings.h"

namespace zonara {

FrameResult runWeatherWindow(FrameContext& ctx, bool updateFirst) {
    const ClockSlot slot = weatherSlotOf(ctx.settings);
    WeatherJob job = weatherJobFor(slot, ctx.rules);
    const QString location = QString::fromStdString(job.place.heading);
    CWeatherDlg dialog(
        ctx.paths, ctx.profile, weatherUnitsOf(ctx.settings),
        QString::fromStdString(storedWeatherLocation(ctx.settings)), location,
        weatherUpdater(weatherServiceFor(ctx.paths, ctx.clock, ctx.config), std::move(job)),
        ctx.window);
    dialog.tellUser = ctx.services.tellUser;
    dialog.updateWhenShown(updateFirst);
    ctx.services.runDialog(dialog);

    // The window's choices count however it was closed.
    bool changed = false;
    if (dialog.unitsChanged()) {
        setWeatherUnits(ctx.settings, dialog.units());
        changed = true;
    }
    if (dialog.reportStored()) {
        rememberWeatherLocation(ctx.settings, slot);
        changed = true;
    }
    return {changed ? FrameOutcome::SettingsChanged : FrameOutcome::Nothing};
}

} // namespace zonara

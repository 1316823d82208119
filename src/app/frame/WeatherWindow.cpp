#include "app/frame/WeatherWindow.h"

#include <cstdio>

#include "net/CWeatherDlg.h"
#include "net/Config.h"
#include "net/WeatherSettings.h"

namespace zonara {

namespace {

// zonara.ini as it stands when the window opens; what it gets wrong is said
// on stderr and the default used.
Config readSettings(const FrameContext& ctx) {
    ConfigRead read = readConfig(configFile(ctx.paths));
    for (const std::string& warning : read.warnings)
        std::fprintf(stderr, "zonara: %s\n", warning.c_str());
    return read.config;
}

} // namespace

FrameResult runWeatherWindow(FrameContext& ctx, bool updateFirst) {
    const ClockSlot slot = weatherSlotOf(ctx.settings);
    WeatherJob job = weatherJobFor(slot, ctx.rules);
    const QString location = QString::fromStdString(job.place.heading);
    CWeatherDlg dialog(
        ctx.paths, ctx.profile, weatherUnitsOf(ctx.settings),
        QString::fromStdString(storedWeatherLocation(ctx.settings)), location,
        weatherUpdater(weatherServiceFor(ctx.paths, ctx.clock, readSettings(ctx)), std::move(job)),
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

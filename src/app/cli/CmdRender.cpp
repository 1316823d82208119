#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

#include <QImage>
#include <QString>

#include "app/Commands.h"
#include "app/OffscreenApp.h"
#include "clocks/CClockDetails.h"
#include "clocks/SkinFiles.h"
#include "core/DeviceProfile.h"

#include "core/Settings.h"
#include "core/Text.h"
#include "core/WorldFiles.h"

namespace zonara {

namespace {

constexpr std::string_view commandName = "zonara render: ";

int fail(CommandContext& ctx, const std::string& message) {
    ctx.err << commandName << message << "\n";
    return 1;
}

std::string screenText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

} // namespace

int runRender(CommandContext& ctx, Args& args) {
    const std::optional<std::string> out = args.option("--out");
    const std::optional<std::string> slotText = args.option("--slot");
    const std::optional<std::string> skinText = args.option("--skin");
    const std::vector<std::string> words = args.positionals();
    if (!args.ok())
        return fail(ctx, args.error());
    if (words.size() != 1 || words[0] != "full")
        return fail(ctx, "say what to draw: full");
    if (!out || out->empty())
        return fail(ctx, "--out FILE.png is required");

    const int width = ctx.options.screenWidth;
    const int height = ctx.options.screenHeight;
    const std::optional<DeviceProfile> profile =
        deviceProfile(width, height, ctx.options.secondDisplay);
    if (!profile)
        return fail(ctx, "no screen profile for " + screenText(width, height) +
                             "; the screens are 176x220, 240x320, 480x640 and their landscape "
                             "forms");

    Settings settings;
    settings.Load(ctx.paths.dataFile(settingsFileName));
    std::size_t slot =
        settings.selectedSlot >= 0 && std::size_t(settings.selectedSlot) < settings.slots.size()
            ? std::size_t(settings.selectedSlot)
            : 0;
    if (slotText) {
        if (*slotText != "0" && *slotText != "1" && *slotText != "2" && *slotText != "3")
            return fail(ctx, "--slot wants 0, 1, 2 or 3, not '" + *slotText + "'");
        slot = std::size_t(std::stoi(*slotText));
    }
    const std::string skin = skinText ? *skinText : toUtf8(settings.skinFile);
    const std::filesystem::path scheme = schemeFile(ctx.paths, skin, width, height);
    if (!std::filesystem::is_regular_file(scheme))
        return fail(ctx, "no scheme for skin '" + skin + "' at " + scheme.string() +
                             "; 'zonara skins' lists the skins for the screen");

    OffscreenApp application;
    if (!application.usable())
        return fail(ctx, "cannot draw: a non-widget Qt application is running");

    DstRuleList rules;
    loadDstRules(ctx.paths, rules);
    CClockDetails view(ctx.paths, ctx.clock, *profile);
    view.setRules(&rules);
    view.setUse24Hour(settings.use24Hour != 0);
    view.setCity(settings.slots[slot]);
    view.applySkin(skin);
    const QImage image = view.renderImage();
    if (!image.save(QString::fromStdString(*out), "PNG"))
        return fail(ctx, "cannot write " + *out);

    const ZoneTime& local = view.localTime();
    char time[16];
    std::snprintf(time, sizeof time, "%02d:%02d:%02d", local.hour % 100, local.minute % 100,
                  local.second % 100);
    ctx.out << "full clock of " << toUtf8(settings.slots[slot].cityName) << " at " << time
            << " (slot " << slot << ", skin " << skin << ", " << screenText(width, height)
            << ") written to " << *out << "\n";
    return 0;
}

} // namespace zonara

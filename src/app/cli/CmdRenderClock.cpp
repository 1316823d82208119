#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

#include <QImage>
#include <QString>

#include "app/Commands.h"
#include "app/OffscreenApp.h"
#include "clocks/CAnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"

#include "core/Settings.h"
#include "core/Text.h"
#include "core/WorldFiles.h"
#include "core/ZoneTime.h"

namespace zonara {

namespace {

constexpr std::string_view commandName = "zonara render-clock: ";

QString toQString(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

// The selected slot's local time, as the full clock shows it on this tick.
ZoneTime selectedLocalTime(CommandContext& ctx, const Settings& settings) {
    const std::size_t slot =
        settings.selectedSlot >= 0 && std::size_t(settings.selectedSlot) < settings.slots.size()
            ? std::size_t(settings.selectedSlot)
            : 0;
    DstRuleList rules;
    loadDstRules(ctx.paths, rules);
    ZoneTime local;
    local.setUtc(ctx.clock.utcNow());
    local.timeZoneIndex = settings.slots[slot].timeZoneIndex;
    local.dstRuleIndex = settings.slots[slot].dstRuleIndex;
    local.ApplyZone(rules);
    return local;
}

int fail(CommandContext& ctx, const std::string& message) {
    ctx.err << commandName << message << "\n";
    return 1;
}

std::string rectText(const SkinRect& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) +
           "," + std::to_string(r.bottom);
}

} // namespace

int runRenderClock(CommandContext& ctx, Args& args) {
    const std::optional<std::string> out = args.option("--out");
    const std::optional<std::string> sizeText = args.option("--size");
    const std::optional<std::string> skinText = args.option("--skin");
    const std::vector<std::string> words = args.positionals();
    if (!args.ok())
        return fail(ctx, args.error());
    if (words.size() != 1 || (words[0] != "analogue" && words[0] != "digital"))
        return fail(ctx, "say which clock: analogue or digital");
    if (!out || out->empty())
        return fail(ctx, "--out FILE.png is required");
    std::optional<std::pair<int, int>> size;
    if (sizeText) {
        size = parseScreenSize(*sizeText);
        if (!size || size->first <= 0 || size->second <= 0)
            return fail(ctx, "--size wants WxH, for example 240x240, not '" + *sizeText + "'");
    }
    const bool analogue = words[0] == "analogue";

    Settings settings;
    settings.Load(ctx.paths.dataFile(settingsFileName));
    const std::string skin = skinText ? *skinText : toUtf8(settings.skinFile);
    const std::filesystem::path scheme =
        schemeFile(ctx.paths, skin, ctx.options.screenWidth, ctx.options.screenHeight);
    if (!std::filesystem::is_regular_file(scheme))
        return fail(ctx, "no scheme for skin '" + skin + "' at " + scheme.string());
    CXMLParser parser;
    if (!found(parser.Create()) || !found(parser.Load(scheme)))
        return fail(ctx, "the scheme " + scheme.string() + " does not parse");

    const std::string element = analogue ? "clock" : "dig_clock";
    std::string state;
    if (parser.GetValue(std::string(schemePrefix) + "/" + element + "/@state", state) !=
        CXMLParser::Result::Value)
        return fail(ctx, "the scheme has no " + element + "/@state");

    OffscreenApp application;
    if (!application.usable())
        return fail(ctx, "cannot draw: a non-widget Qt application is running");

    SkinRect rect;
    const ZoneTime local = selectedLocalTime(ctx, settings);
    QImage image;
    if (analogue) {
        CAnalogueClock clock;
        if (!clock.engine().readScheme(parser, schemePrefix, rect))
            return fail(ctx, "the skin does not show the analogue clock (clock/@state is '" +
                                 state + "')");
        std::string backgroundName;
        if (parser.GetValue(std::string(schemePrefix) + "/background/@img", backgroundName) !=
            CXMLParser::Result::Value)
            return fail(ctx, "the scheme has no background/@img");
        const std::filesystem::path picture = ctx.paths.graphicsFile(backgroundName);
        const QImage background(toQString(picture));
        if (background.isNull())
            return fail(ctx, "cannot load the background picture " + picture.string());
        const int width = size ? size->first : rect.right - rect.left;
        const int height = size ? size->second : rect.bottom - rect.top;
        if (width <= 0 || height <= 0)
            return fail(ctx,
                        "the clock's rectangle " + rectText(rect) + " is empty; give --size WxH");
        clock.resize(width, height);
        clock.setBackground(background, QPoint(rect.left, rect.top));
        clock.setTime(local.hour >= 12 ? local.hour - 12 : local.hour, local.minute, local.second);
        image = clock.render();
    } else {
        CDigitalClock clock;
        if (!clock.engine().readScheme(parser, schemePrefix, rect))
            return fail(ctx, "the skin does not show the digital clock (dig_clock/@state is '" +
                                 state + "')");
        const int width = size ? size->first : rect.right - rect.left;
        const int height = size ? size->second : rect.bottom - rect.top;
        if (width <= 0 || height <= 0)
            return fail(ctx,
                        "the clock's rectangle " + rectText(rect) + " is empty; give --size WxH");
        clock.resize(width, height);
        clock.setUse24Hour(settings.use24Hour != 0);
        clock.setTime(local.hour, local.minute, local.second);
        image = QImage(width, height, QImage::Format_RGB32);
        image.fill(Qt::black);
        clock.renderTo(image);
    }
    parser.Close();

    if (!image.save(QString::fromStdString(*out), "PNG"))
        return fail(ctx, "cannot write " + *out);
    char time[16];
    std::snprintf(time, sizeof time, "%02d:%02d:%02d", local.hour % 100, local.minute % 100,
                  local.second % 100);
    ctx.out << words[0] << " clock at " << time << " (" << image.width() << "x" << image.height()
            << ") written to " << *out << "\n";
    return 0;
}

} // namespace zonara

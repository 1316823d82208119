#include <filesystem>
#include <optional>
#include <string>

#include <QImage>
#include <QString>

#include "app/OffscreenApp.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/RenderOutput.h"
#include "app/cli/TablePrinter.h"
#include "clocks/CAnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"
#include "core/LocalTime.h"
#include "core/Text.h"

namespace zonara {

namespace {

std::string rectText(const SkinRect& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) +
           "," + std::to_string(r.bottom);
}

// --size WxH, else the clock's rectangle in the scheme.
Expected<QSize> pictureSize(const std::optional<std::pair<int, int>>& size, const SkinRect& rect) {
    const int width = size ? size->first : rect.right - rect.left;
    const int height = size ? size->second : rect.bottom - rect.top;
    if (width <= 0 || height <= 0) {
        return fail("the clock's rectangle " + rectText(rect) + " is empty; give --size WxH");
    }
    return QSize(width, height);
}

// The analogue clock over its part of the skin's background picture.
Expected<QImage> drawAnalogue(CommandContext& ctx, CXMLParser& parser,
                              const std::optional<std::pair<int, int>>& size, const ZoneTime& local,
                              const std::string& state) {
    CAnalogueClock clock(ctx.clock);
    SkinRect rect;
    if (!clock.engine().readScheme(parser, schemePrefix, rect)) {
        return fail("the skin does not show the analogue clock (clock/@state is '" + state + "')");
    }
    std::string backgroundName;
    if (parser.GetValue(std::string(schemePrefix) + "/background/@img", backgroundName) !=
        CXMLParser::Result::Value) {
        return fail("the scheme has no background/@img");
    }
    const std::filesystem::path picture = ctx.paths.graphicsFile(backgroundName);
    const QImage background(QString::fromStdString(picture.string()));
    if (background.isNull()) {
        return fail("cannot load the background picture " + picture.string());
    }
    const Expected<QSize> pixels = pictureSize(size, rect);
    if (!pixels) {
        return pixels.error();
    }
    clock.resize(*pixels);
    clock.setBackground(background, QPoint(rect.left, rect.top));
    clock.setTime(local.hour >= 12 ? local.hour - 12 : local.hour, local.minute, local.second);
    return clock.render();
}

Expected<QImage> drawDigital(CXMLParser& parser, const std::optional<std::pair<int, int>>& size,
                             const ZoneTime& local, const std::string& state, bool use24Hour) {
    CDigitalClock clock;
    SkinRect rect;
    if (!clock.engine().readScheme(parser, schemePrefix, rect)) {
        return fail("the skin does not show the digital clock (dig_clock/@state is '" + state +
                    "')");
    }
    const Expected<QSize> pixels = pictureSize(size, rect);
    if (!pixels) {
        return pixels.error();
    }
    clock.resize(*pixels);
    clock.setUse24Hour(use24Hour);
    clock.setTime(local.hour, local.minute, local.second);
    QImage image(*pixels, QImage::Format_RGB32);
    image.fill(Qt::black);
    clock.renderTo(image);
    return image;
}

Expected<std::optional<std::pair<int, int>>> takeSize(Args& args) {
    const std::optional<std::string> text = args.option("--size");
    if (!text) {
        return std::optional<std::pair<int, int>>();
    }
    if (const auto size = parseScreenSize(*text)) {
        return size;
    }
    return fail("--size wants WxH, for example 240x240, not '" + *text + "'");
}

Outcome runRenderClock(CommandContext& ctx, Args& args) {
    const Expected<std::filesystem::path> out = takeOut(args);
    const auto size = takeSize(args);
    const std::optional<std::string> skinText = args.option("--skin");
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (words->size() != 1 || (words->front() != "analogue" && words->front() != "digital")) {
        return fail("say which clock: analogue or digital");
    }
    if (!out) {
        return out.error();
    }
    if (!size) {
        return size.error();
    }
    const bool analogue = words->front() == "analogue";

    const Settings settings = ctx.loadSettings();
    const std::string skin = skinText ? *skinText : toUtf8(settings.skinFile);
    const std::filesystem::path scheme =
        schemeFile(ctx.paths, skin, ctx.options.screenWidth, ctx.options.screenHeight);
    if (!std::filesystem::is_regular_file(scheme)) {
        return fail("no scheme for skin '" + skin + "' at " + scheme.string());
    }
    CXMLParser parser;
    if (!found(parser.Create()) || !found(parser.Load(scheme))) {
        return fail("the scheme " + scheme.string() + " does not parse");
    }
    const std::string element = analogue ? "clock" : "dig_clock";
    std::string state;
    if (parser.GetValue(std::string(schemePrefix) + "/" + element + "/@state", state) !=
        CXMLParser::Result::Value) {
        return fail("the scheme has no " + element + "/@state");
    }

    OffscreenApp application;
    if (Outcome problem = drawingProblem(application); !problem.ok()) {
        return problem;
    }
    // The selected slot's local time, as the full clock shows it on this tick.
    const ZoneTime local =
        localTime(ctx.clock.utcNow(), settings.slots[selectedSlot(settings)], ctx.world().rules());
    const Expected<QImage> image =
        analogue ? drawAnalogue(ctx, parser, *size, local, state)
                 : drawDigital(parser, *size, local, state, settings.use24Hour != 0);
    parser.Close();
    if (!image) {
        return image.error();
    }
    if (Outcome saved = savePng(*image, *out); !saved.ok()) {
        return saved;
    }
    ctx.out << words->front() << " clock at " << isoTime(local.hour, local.minute, local.second)
            << " (" << image->width() << "x" << image->height() << ") written to " << out->string()
            << "\n";
    return {};
}

} // namespace

extern const Command renderClockCommand{
    .name = "render-clock",
    .usage = "analogue|digital --out FILE.png [--size WxH] [--skin NAME]",
    .summary = "draw the full clock's analogue or digital clock into a PNG",
    .help = "Draws one clock of the full clock alone, as the full clock draws it, from the\n"
            "skin's scheme for the screen size of --screen (Graphics/NAME_WxH.xml; the\n"
            "skin defaults to the settings' skin). It shows the selected slot's local time\n"
            "(--at fixes it). The clock's rectangle in the scheme gives the picture size\n"
            "unless --size is given; the analogue clock is drawn over its part of the\n"
            "skin's background picture.\n",
    .run = runRenderClock,
};

} // namespace zonara

#include "app/cli/RenderViews.h"

#include <charconv>
#include <ostream>

#include <QImage>

#include "app/OffscreenApp.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/RenderOutput.h"
#include "app/cli/TablePrinter.h"
#include "clocks/CMultiClock.h"
#include "core/Text.h"
#include "globe/CGlobe.h"

namespace zonara {

namespace {

std::string utcText(const SystemTime& utc) {
    return isoTime(utc.hour, utc.minute, utc.second) + " UTC";
}

// --scroll N: the map column at the view's left edge.
Expected<std::optional<int>> takeScroll(Args& args) {
    const std::optional<std::string> text = args.option("--scroll");
    if (!text) {
        return std::optional<int>();
    }
    int value = 0;
    const auto [end, ec] = std::from_chars(text->data(), text->data() + text->size(), value);
    if (ec != std::errc{} || end != text->data() + text->size() || value < 0) {
        return fail("--scroll wants a map column from 0, not '" + *text + "'");
    }
    return std::optional<int>(value);
}

} // namespace

Outcome drawGlobe(CommandContext& ctx, Args& args) {
    Settings settings = ctx.loadSettings();
    const Expected<std::filesystem::path> out = takeOut(args);
    const Expected<std::size_t> slot = takeSlot(args, settings);
    const Expected<std::optional<int>> scroll = takeScroll(args);
    const bool mapOnly = args.flag("--map");
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    const Expected<DeviceProfile> profile = ctx.profile();
    if (Outcome problem = firstError(out, slot, scroll, profile); !problem.ok()) {
        return problem;
    }
    OffscreenApp application;
    if (Outcome problem = drawingProblem(application); !problem.ok()) {
        return problem;
    }

    settings.selectedSlot = int(*slot);
    // Shown and given the slots as the window does: shaded and centred on the slot.
    CGlobe view(ViewSetup{ctx.paths, ctx.clock, *profile, {}});
    view.Show();
    view.showSlots(settings, ctx.world().rules());
    const MapPair pair = mapPairFor(*profile);
    if (view.mapImage().isNull()) {
        return fail("no map picture at " + ctx.paths.graphicsFile(pair.dayFile).string());
    }
    const int mapWidth = view.model().mapWidth();
    if (*scroll) {
        if (**scroll >= mapWidth) {
            return fail("--scroll wants a map column from 0 to " + std::to_string(mapWidth - 1) +
                        ", not " + std::to_string(**scroll));
        }
        view.setScrollOffset(**scroll);
    }
    const QImage image = mapOnly ? view.mapImage() : view.renderImage();
    if (Outcome saved = savePng(image, *out); !saved.ok()) {
        return saved;
    }
    const SystemTime now = ctx.clock.utcNow();
    if (mapOnly) {
        ctx.out << "shaded map " << mapWidth << "x" << view.model().mapHeight() << " at "
                << utcText(now) << " written to " << out->string() << "\n";
    } else {
        ctx.out << "globe on " << toUtf8(settings.slots[*slot].cityName) << " at " << utcText(now)
                << " (slot " << *slot << ", scroll " << view.model().scrollOffset() << ", "
                << screenText(*profile) << ") written to " << out->string() << "\n";
    }
    return {};
}

Outcome drawMultiClock(CommandContext& ctx, Args& args) {
    const Settings settings = ctx.loadSettings();
    const Expected<std::filesystem::path> out = takeOut(args);
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    const Expected<DeviceProfile> profile = ctx.profile();
    if (Outcome problem = firstError(out, profile); !problem.ok()) {
        return problem;
    }
    OffscreenApp application;
    if (Outcome problem = drawingProblem(application); !problem.ok()) {
        return problem;
    }
    CMultiClock page(ViewSetup{ctx.paths, ctx.clock, *profile, {}});
    page.showSlots(settings, ctx.world().rules());
    if (Outcome saved = savePng(page.renderImage(), *out); !saved.ok()) {
        return saved;
    }
    ctx.out << "multi-clock page at " << utcText(ctx.clock.utcNow()) << " (selected slot "
            << selectedSlot(settings) << ", " << screenText(*profile) << ") written to "
            << out->string() << "\n";
    return {};
}

} // namespace zonara

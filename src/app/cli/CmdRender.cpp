#include <array>
#include <filesystem>
#include <string>

#include <QImage>
#include <QString>

#include "app/OffscreenApp.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/RenderOutput.h"
#include "app/cli/RenderViews.h"
#include "app/cli/TablePrinter.h"
#include "clocks/CClockDetails.h"
#include "clocks/SkinFiles.h"
#include "core/Text.h"

namespace zonara {

namespace {

Outcome drawFullClock(CommandContext& ctx, Args& args) {
    const Settings settings = ctx.loadSettings();
    const Expected<std::filesystem::path> out = takeOut(args);
    const Expected<std::size_t> slot = takeSlot(args, settings);
    const std::optional<std::string> skinText = args.option("--skin");
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    const Expected<DeviceProfile> profile = ctx.profile();
    if (Outcome problem = firstError(out, slot, profile); !problem.ok()) {
        return problem;
    }
    const std::string skin = skinText ? *skinText : toUtf8(settings.skinFile);
    const std::filesystem::path scheme =
        schemeFile(ctx.paths, skin, profile->width, profile->height);
    if (!std::filesystem::is_regular_file(scheme)) {
        return fail("no scheme for skin '" + skin + "' at " + scheme.string() +
                    "; 'zonara skins' lists the skins for the screen");
    }

    OffscreenApp application;
    if (Outcome problem = drawingProblem(application); !problem.ok()) {
        return problem;
    }
    CClockDetails view(ctx.paths, ctx.clock, *profile);
    view.setRules(&ctx.world().rules());
    view.setUse24Hour(settings.use24Hour != 0);
    view.setCity(settings.slots[*slot]);
    view.applySkin(skin);
    if (Outcome saved = savePng(view.renderImage(), *out); !saved.ok()) {
        return saved;
    }

    const ZoneTime& local = view.localTime();
    ctx.out << "full clock of " << toUtf8(settings.slots[*slot].cityName) << " at "
            << isoTime(local.hour, local.minute, local.second) << " (slot " << *slot << ", skin "
            << skin << ", " << screenText(*profile) << ") written to " << out->string() << "\n";
    return {};
}

// What render can draw: each target takes the words after its name.
struct RenderTarget {
    std::string_view name;
    Outcome (*draw)(CommandContext& ctx, Args& args);
};

constexpr std::array renderTargets = {
    RenderTarget{"full", drawFullClock},
    RenderTarget{"globe", drawGlobe},
    RenderTarget{"multi", drawMultiClock},
};

Outcome runRender(CommandContext& ctx, Args& args) {
    const std::optional<std::string> what = args.firstWord();
    for (const RenderTarget& target : renderTargets) {
        if (what == target.name) {
            return target.draw(ctx, args);
        }
    }
    std::string names;
    for (const RenderTarget& target : renderTargets) {
        names += (names.empty() ? "" : ", ") + std::string(target.name);
    }
    return fail("say what to draw first: " + names);
}

} // namespace

extern const Command renderCommand{
    .name = "render",
    .usage = "full|globe|multi --out FILE.png [--screen WxH] [--slot N] [--skin NAME] "
             "[--scroll N] [--map]",
    .summary = "draw the full clock, the globe or the multi-clock page into a PNG",
    .help = "Draws a view offscreen exactly as the window shows it, at the size of\n"
            "--screen (default 480x640; a known screen), at the time of --at (default:\n"
            "now). Times follow the settings' 24-hour setting.\n"
            "\n"
            "  full    the full clock with the skin's scheme Graphics/NAME_WxH.xml\n"
            "          (--skin, default: the settings' skin) and the city of clock slot\n"
            "          N (--slot, default: the selected slot)\n"
            "  globe   the day/night map with the four cities' markers and the clock\n"
            "          strip of slot N (--slot, default: the selected slot), centred on\n"
            "          that city unless --scroll gives the map column at the left edge;\n"
            "          with --map only the shaded map at its own size, without markers\n"
            "  multi   the four clock slots as small clocks, the selected one marked\n",
    .run = runRender,
};

} // namespace zonara

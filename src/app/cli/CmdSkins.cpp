#include <string>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "clocks/SkinFiles.h"
#include "core/Text.h"

namespace zonara {

namespace {

Outcome runSkins(CommandContext& ctx, Args& args) {
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    const std::string current = toUtf8(ctx.loadSettings().skinFile);
    const int width = ctx.options.screenWidth;
    const int height = ctx.options.screenHeight;

    // Only an exact match is marked: the skin chooser would preselect the
    // first entry when the current skin has no scheme for this screen, but
    // that entry is not the skin the full clock uses.
    const SkinList list = enumerateSkins(ctx.paths, width, height, current);
    bool currentListed = false;
    TablePrinter table({"Skin", "Current"});
    for (const std::string& name : list.names) {
        const bool isCurrent = name == current;
        currentListed = currentListed || isCurrent;
        table.add({name, ctx.tsv() ? (isCurrent ? "1" : "0") : (isCurrent ? "*" : "")});
    }
    table.print(ctx.out, ctx.tsv());

    const std::string screen = std::to_string(width) + "x" + std::to_string(height);
    if (list.names.empty()) {
        ctx.warn("no skins for " + screen + " in " + ctx.paths.graphicsDir().string());
    } else if (!currentListed) {
        ctx.warn("the current skin '" + current + "' has no scheme for " + screen);
    }
    return {};
}

} // namespace

extern const Command skinsCommand{
    .name = "skins",
    .usage = "",
    .summary = "the full-clock skins for the screen size",
    .help = "Lists the skins that have a scheme file (Graphics/NAME_WxH.xml) for the\n"
            "screen size of --screen (default 480x640), in file-name order; * marks the\n"
            "current skin of the settings. With --tsv: skin, current (0 or 1).\n",
    .run = runSkins,
};

} // namespace zonara

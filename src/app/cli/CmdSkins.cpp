#include <string>

#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "clocks/SkinFiles.h"
#include "core/Settings.h"
#include "core/Text.h"

namespace zonara {

int runSkins(CommandContext& ctx, Args& args) {
    if (const auto extra = args.positionals(); !args.ok() || !extra.empty()) {
        ctx.err << "zonara skins: "
                << (args.ok() ? "unexpected '" + extra.front() + "'" : args.error()) << "\n";
        return 1;
    }
    Settings settings;
    settings.Load(ctx.paths.dataFile(settingsFileName));
    const std::string current = toUtf8(settings.skinFile);
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
        table.add({name, ctx.options.tsv ? (isCurrent ? "1" : "0") : (isCurrent ? "*" : "")});
    }
    table.print(ctx.out, ctx.options.tsv);

    const std::string screen = std::to_string(width) + "x" + std::to_string(height);
    if (list.names.empty())
        ctx.err << "zonara skins: no skins for " << screen << " in "
                << ctx.paths.graphicsDir().string() << "\n";
    else if (!currentListed)
        ctx.err << "zonara skins: the current skin '" << current << "' has no scheme for " << screen
                << "\n";
    return 0;
}

} // namespace zonara

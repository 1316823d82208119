#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "globe/MoonPhase.h"

namespace zonara {

namespace {

Outcome runMoon(CommandContext& ctx, Args& args) {
    const Expected<SystemTime> date = takeDate(args, ctx.clock);
    if (Outcome done = expectNoWords(args, "use --date YYYY-MM-DD"); !done.ok()) {
        return done;
    }
    if (!date) {
        return date.error();
    }
    const std::string iso = isoDate(date->year, date->month, date->day);
    const int index = MoonPhaseIndex(date->year, date->month, date->day);
    TablePrinter table({"Date", "Phase", "Name"});
    if (ctx.tsv()) {
        table.add({iso, std::to_string(index)});
    } else {
        table.add({iso, std::to_string(index), std::string(moonPhaseName(index))});
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command moonCommand{
    .name = "moon",
    .usage = "[--date YYYY-MM-DD]",
    .summary = "the moon's phase",
    .help = "Shows the moon's phase on the date (default: today's UTC date) as an index\n"
            "from 0 (new moon) through 4 (full moon) to 7, and its name.\n"
            "With --tsv: date, index.\n",
    .run = runMoon,
    .needsRoot = false,
};

} // namespace zonara

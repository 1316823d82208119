#include <cstdio>

#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "globe/MoonPhase.h"

namespace zonara {

int runMoon(CommandContext& ctx, Args& args) {
    const std::optional<std::string> dateText = args.option("--date");
    const std::vector<std::string> words = args.positionals();
    std::string problem = args.error();
    std::optional<SystemTime> date = ctx.clock.utcNow();
    if (problem.empty() && !words.empty()) {
        problem = "unexpected '" + words.front() + "'; use --date YYYY-MM-DD";
    } else if (problem.empty() && dateText) {
        date = parseIsoDate(*dateText);
        if (!date) {
            problem = "'" + *dateText + "' is not a date; use YYYY-MM-DD";
        }
    }
    if (!problem.empty()) {
        ctx.err << "zonara moon: " << problem << "\n";
        return 1;
    }

    char iso[16];
    std::snprintf(iso, sizeof iso, "%04d-%02d-%02d", int(date->year), int(date->month),
                  int(date->day));
    const int index = MoonPhaseIndex(date->year, date->month, date->day);
    TablePrinter table({"Date", "Phase", "Name"});
    if (ctx.options.tsv) {
        table.add({iso, std::to_string(index)});
    } else {
        table.add({iso, std::to_string(index), std::string(moonPhaseName(index))});
    }
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

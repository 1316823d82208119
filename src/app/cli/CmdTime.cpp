#include "app/ClockRows.h"
#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/WorldFiles.h"

namespace zonara {

int runTime(CommandContext& ctx, Args& args) {
    const bool all = args.flag("--all");
    const std::optional<std::string> countryName = args.option("--country");
    const std::vector<std::string> words = args.positionals();
    std::string problem = args.error();
    if (problem.empty() && all && (!words.empty() || countryName)) {
        problem = "--all takes no city or country";
    } else if (problem.empty() && !all && words.size() != 1) {
        problem = words.empty() ? "which city? 'zonara time CITY' or 'zonara time --all'"
                                : "one city at a time; put a name with spaces in quotes";
    }
    if (!problem.empty()) {
        ctx.err << "zonara time: " << problem << "\n";
        return 1;
    }

    const auto [settings, rules] = loadClockSetup(ctx);
    const SystemTime utc = ctx.clock.utcNow();
    const bool use24Hour = settings.use24Hour != 0;
    TablePrinter table(clockRowHeader());
    auto addCity = [&](const Country& country, const City& city) {
        table.add(clockRow({"-", city.name, country.name, city.timeZoneIndex, city.dstRuleIndex},
                           utc, rules, use24Hour, ctx.options.tsv));
    };

    CountryList countries;
    if (all) {
        loadCountries(ctx.paths, countries, false);
        for (Country& country : countries) {
            loadCities(ctx.paths, country, false);
            for (const City& city : country.cities) {
                addCity(country, city);
            }
        }
    } else {
        const auto match = findCity(ctx, countries, words.front(), countryName);
        if (!match) {
            return 1;
        }
        addCity(*match->country, *match->city);
    }
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

#include <cstdio>

#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/WorldFiles.h"
#include "core/ZoneTime.h"
#include "globe/SunEventText.h"
#include "globe/SunTimes.h"

namespace zonara {

namespace {

std::string isoDate(const SystemTime& date) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", int(date.year), int(date.month),
                  int(date.day));
    return text;
}

} // namespace

int runSun(CommandContext& ctx, Args& args) {
    const std::optional<std::string> countryName = args.option("--country");
    const std::optional<std::string> dateText = args.option("--date");
    const std::vector<std::string> words = args.positionals();
    std::string problem = args.error();
    std::optional<SystemTime> date = ctx.clock.utcNow();
    if (problem.empty() && words.size() != 1) {
        problem = words.empty() ? "which city? 'zonara sun CITY'"
                                : "one city at a time; put a name with spaces in quotes";
    } else if (problem.empty() && dateText) {
        date = parseIsoDate(*dateText);
        if (!date) {
            problem = "'" + *dateText + "' is not a date; use YYYY-MM-DD";
        }
    }
    if (!problem.empty()) {
        ctx.err << "zonara sun: " << problem << "\n";
        return 1;
    }

    prepareWorld(ctx);
    CountryList countries;
    const auto match = findCity(ctx, countries, words.front(), countryName);
    if (!match) {
        return 1;
    }
    DstRuleList rules;
    loadDstRules(ctx.paths, rules);

    const City& city = *match->city;
    // The city's single-precision coordinates widened, as every caller does.
    const double longitude = city.longitude;
    const double latitude = city.latitude;
    const SunTime rise = SunriseTime(date->year, date->month, date->day, longitude, latitude);
    const SunTime set = SunsetTime(date->year, date->month, date->day, longitude, latitude);
    ZoneTime dateAndZone;
    dateAndZone.year = date->year;
    dateAndZone.month = date->month;
    dateAndZone.day = date->day;
    dateAndZone.timeZoneIndex = city.timeZoneIndex;
    dateAndZone.dstRuleIndex = city.dstRuleIndex;

    TablePrinter table(
        {"City", "Country", "Date", "Sunrise UT", "Sunset UT", "Sunrise local", "Sunset local"});
    table.add({city.name, match->country->name, isoDate(*date), sunEventUtText(rise),
               sunEventUtText(set), sunEventText(rise, dateAndZone, rules),
               sunEventText(set, dateAndZone, rules)});
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

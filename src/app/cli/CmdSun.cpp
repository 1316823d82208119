#include "app/cli/CityChoice.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "core/ZoneTime.h"
#include "globe/SunEventText.h"
#include "globe/SunTimes.h"

namespace zonara {

namespace {

Outcome runSun(CommandContext& ctx, Args& args) {
    const std::optional<std::string> country = takeCountry(args);
    const Expected<SystemTime> date = takeDate(args, ctx.clock);
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (!date) {
        return date.error();
    }
    if (words->empty()) {
        return fail("which city? 'zonara sun CITY'");
    }
    WorldAccess& world = ctx.world();
    const Expected<ChosenCity> chosen = chooseCity(world.catalog(), joinedWords(*words), country);
    if (!chosen) {
        return chosen.error();
    }

    const City& city = *chosen->city;
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

    const DstRuleList& rules = world.rules();
    TablePrinter table(
        {"City", "Country", "Date", "Sunrise UT", "Sunset UT", "Sunrise local", "Sunset local"});
    table.add({city.name, chosen->country->name, isoDate(date->year, date->month, date->day),
               sunEventUtText(rise), sunEventUtText(set), sunEventText(rise, dateAndZone, rules),
               sunEventText(set, dateAndZone, rules)});
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command sunCommand{
    .name = "sun",
    .usage = "CITY [--country NAME] [--date YYYY-MM-DD]",
    .summary = "sunrise and sunset of a city",
    .help = "Shows sunrise and sunset of CITY (found as 'zonara time' finds it) on the\n"
            "date (default: today's UTC date) in UT and in the city's local time\n"
            "(24-hour). A day without sunrise or sunset shows 'Up all day' or 'Down all\n"
            "day'.\n"
            "With --tsv: city, country, date, sunrise UT, sunset UT (HH:MM:SS),\n"
            "sunrise local, sunset local (HH:MM).\n",
    .run = runSun,
};

} // namespace zonara

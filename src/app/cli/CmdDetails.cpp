#include <algorithm>
#include <ostream>

#include "app/cli/CityChoice.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "cities/CityDetailsRows.h"

namespace zonara {

namespace {

void printDetails(const CityDetails& details, std::ostream& out, bool tsv) {
    if (tsv) {
        for (const DetailsRow& row : details.rows)
            out << detailsLabel(row.id) << '\t' << row.value << '\n';
        return;
    }
    out << details.cityName << ", " << details.countryName << '\n';
    std::size_t width = 0;
    for (const DetailsRow& row : details.rows)
        width = std::max(width, detailsLabel(row.id).size());
    for (const DetailsRow& row : details.rows) {
        std::string label(detailsLabel(row.id));
        label.resize(width + 2, ' ');
        out << label << row.value << '\n';
    }
}

Outcome runDetails(CommandContext& ctx, Args& args) {
    const std::optional<std::string> country = takeCountry(args);
    const Settings settings = ctx.loadSettings();
    const Expected<std::size_t> slot = takeSlot(args, settings);
    const auto words = args.words();
    if (!words)
        return words.error();
    if (!slot)
        return slot.error();
    if (words->empty() && country)
        return fail("which city in " + *country + "? 'zonara details CITY --country NAME'");

    WorldAccess& world = ctx.world();
    // A slot keeps what was chosen for it (an airport picked from the list);
    // a city by name shows what the world files have.
    ClockSlot city = settings.slots[*slot];
    if (!words->empty()) {
        const Expected<ChosenCity> chosen =
            chooseCity(world.catalog(), joinedWords(*words), country);
        if (!chosen)
            return chosen.error();
        city.Assign(*chosen->country, *chosen->city);
    }
    printDetails(cityDetails(city, ctx.clock.utcNow(), world.rules()), ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command detailsCommand{
    .name = "details",
    .usage = "[CITY] [--country NAME] [--slot N]",
    .summary = "everything known of a city, as the City Details show it",
    .help = "Shows the city details of CITY (found as 'zonara time' finds it), or of the\n"
            "city in clock slot N (default: the selected slot) with the ICAO code picked\n"
            "for it from the airport list: codes, GMT offset, daylight saving and its\n"
            "start and end this year, position, and today's sunrise and sunset in the\n"
            "city's local time.\n"
            "With --tsv: one line per row, the label as the window shows it, a tab, the\n"
            "value.\n",
    .run = runDetails,
};

} // namespace zonara

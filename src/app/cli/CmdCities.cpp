#include "app/cli/CityChoice.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "core/ZoneTable.h"

namespace zonara {

namespace {

Outcome runCities(CommandContext& ctx, Args& args) {
    const std::optional<std::string> countryName = takeCountry(args);
    if (Outcome done = expectNoWords(args, "use --country NAME"); !done.ok()) {
        return done;
    }
    CityCatalog& catalog = ctx.world().catalog();
    const CountryList& countries = catalog.countries();
    if (!countryName) {
        TablePrinter table({"Id", "Country"});
        for (const Country& country : countries) {
            table.add({std::to_string(country.id), country.name});
        }
        table.print(ctx.out, ctx.tsv());
        return {};
    }

    const Expected<std::size_t> chosen = chooseCountry(catalog, *countryName);
    if (!chosen) {
        return chosen.error();
    }
    TablePrinter table({"City", "Longitude", "Latitude", "Airport", "Dial", "Area", "Zone",
                        "Offset", "Rule", "Station", "Weather query"});
    for (const City& city : catalog.cities(*chosen)) {
        table.add({city.name, twoDecimals(city.longitude), twoDecimals(city.latitude),
                   city.airportCode, city.countryDialCode, city.areaDialCode,
                   std::to_string(city.timeZoneIndex),
                   std::string(zoneRow(city.timeZoneIndex).offsetText),
                   std::to_string(city.dstRuleIndex), city.stationCode, city.weatherQuery});
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command citiesCommand{
    .name = "cities",
    .usage = "[--country NAME]",
    .summary = "the countries, or the cities of one country",
    .help = "Lists the countries of the world files, or with --country the cities of\n"
            "that country, in file order. NAME is typed as people type it: case and\n"
            "accents do not matter, and its beginning is enough when only one country\n"
            "has it.\n",
    .run = runCities,
};

} // namespace zonara

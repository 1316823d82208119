#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/WorldFiles.h"
#include "core/ZoneTable.h"

namespace zonara {

int runCities(CommandContext& ctx, Args& args) {
    const std::optional<std::string> countryName = args.option("--country");
    if (!expectNoMoreArgs(ctx, args, "cities", "use --country NAME")) {
        return 1;
    }
    prepareWorld(ctx);
    CountryList countries;
    if (!countryName) {
        loadCountries(ctx.paths, countries, false);
        TablePrinter table({"Id", "Country"});
        for (const Country& country : countries) {
            table.add({std::to_string(country.id), country.name});
        }
        table.print(ctx.out, ctx.options.tsv);
        return 0;
    }

    const Country* found = findCountry(ctx, countries, *countryName);
    if (found == nullptr) {
        return 1;
    }
    Country& country = *findCountryByName(countries, *countryName);
    loadCities(ctx.paths, country, false);
    TablePrinter table({"City", "Longitude", "Latitude", "Airport", "Dial", "Area", "Zone",
                        "Offset", "Rule", "Station", "Weather query"});
    for (const City& city : country.cities) {
        table.add({city.name, twoDecimals(city.longitude), twoDecimals(city.latitude),
                   city.airportCode, city.countryDialCode, city.areaDialCode,
                   std::to_string(city.timeZoneIndex),
                   std::string(zoneRow(city.timeZoneIndex).offsetText),
                   std::to_string(city.dstRuleIndex), city.stationCode, city.weatherQuery});
    }
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

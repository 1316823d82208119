#include "app/cli/CityChoice.h"
#include "app/cli/ClockRows.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"

namespace zonara {

namespace {

Outcome runTime(CommandContext& ctx, Args& args) {
    const bool all = args.flag("--all");
    const std::optional<std::string> country = takeCountry(args);
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (all && (!words->empty() || country)) {
        return fail("--all takes no city or country");
    }
    if (!all && words->empty()) {
        return fail("which city? 'zonara time CITY' or 'zonara time --all'");
    }

    const Settings settings = ctx.loadSettings();
    WorldAccess& world = ctx.world();
    const SystemTime utc = ctx.clock.utcNow();
    TablePrinter table(clockRowHeader());
    auto addCity = [&](const Country& inCountry, const City& city) {
        table.add(clockRow({"-", city.name, inCountry.name, city.timeZoneIndex, city.dstRuleIndex},
                           utc, world.rules(), settings.use24Hour != 0, ctx.tsv()));
    };

    CityCatalog& catalog = world.catalog();
    if (all) {
        for (std::size_t c = 0; c < catalog.countries().size(); ++c) {
            for (const City& city : catalog.cities(c)) {
                addCity(catalog.countries()[c], city);
            }
        }
    } else {
        const Expected<ChosenCity> chosen = chooseCity(catalog, joinedWords(*words), country);
        if (!chosen) {
            return chosen.error();
        }
        addCity(*chosen->country, *chosen->city);
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command timeCommand{
    .name = "time",
    .usage = "CITY [--country NAME] | --all",
    .summary = "the local time of any city",
    .help = "Shows the local time of CITY, or with --all of every city, in the columns\n"
            "of 'zonara now'. CITY is typed as people type it ('zurich', 'sao paulo',\n"
            "'new york' without quotes): case, accents and punctuation do not matter,\n"
            "and the beginning of a name is enough when only one city has it. A name\n"
            "that fits several cities lists them; --country NAME says which. A name\n"
            "that fits none offers the closest names.\n",
    .run = runTime,
};

} // namespace zonara

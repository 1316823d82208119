#include <charconv>
#include <limits>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "cities/SearchKey.h"

namespace zonara {

namespace {

Expected<std::size_t> parseLimit(const std::optional<std::string>& text) {
    if (!text) {
        return std::numeric_limits<std::size_t>::max();
    }
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), value);
    if (error != std::errc() || end != text->data() + text->size() || value == 0) {
        return fail("--limit takes a whole number above 0, not '" + *text + "'");
    }
    return value;
}

Outcome runFind(CommandContext& ctx, Args& args) {
    const Expected<std::size_t> limit = parseLimit(args.option("--limit"));
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (!limit) {
        return limit.error();
    }
    // The words make one text, so "zonara find new york" needs no quotes.
    const std::string text = joinedWords(*words);
    if (searchKey(text).empty()) {
        return fail("give part of a city's name: 'zonara find syd'");
    }

    CityCatalog& catalog = ctx.world().catalog();
    const std::vector<CityHit> hits = catalog.search(text, *limit);
    if (hits.empty()) {
        return fail("no city name contains '" + text + "'");
    }
    TablePrinter table({"City", "Country"});
    for (const CityHit& hit : hits) {
        table.add({catalog.city(hit).name, catalog.countries()[hit.country].name});
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command findCommand{
    .name = "find",
    .usage = "TEXT... [--limit N]",
    .summary = "find cities by any part of their name",
    .help = "Lists the cities whose name contains TEXT, in every country, without regard\n"
            "to case, accents or punctuation ('sao' finds São Paulo, 'port au' finds\n"
            "Port-au-Prince): names that start with TEXT first, then the others, each\n"
            "alphabetical. Several words are one text.\n"
            "--limit keeps the first N. With --tsv: city, country.\n",
    .run = runFind,
};

} // namespace zonara

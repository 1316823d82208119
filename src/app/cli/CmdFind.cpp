#include <charconv>
#include <limits>

#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "cities/CityCatalog.h"

namespace zonara {

namespace {

std::optional<std::size_t> parseLimit(const std::string& text) {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value == 0) {
        return std::nullopt;
    }
    return value;
}

} // namespace

int runFind(CommandContext& ctx, Args& args) {
    const std::optional<std::string> limitText = args.option("--limit");
    const std::vector<std::string> words = args.positionals();
    std::string problem = args.error();
    std::size_t limit = std::numeric_limits<std::size_t>::max();
    // The words make one text, so "zonara find new york" needs no quotes.
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    if (problem.empty() && limitText) {
        if (const auto parsed = parseLimit(*limitText)) {
            limit = *parsed;
        } else {
            problem = "--limit takes a whole number above 0, not '" + *limitText + "'";
        }
    }
    if (problem.empty() && text.find_first_not_of(" \t") == std::string::npos) {
        problem = "give part of a city's name: 'zonara find syd'";
    }
    if (!problem.empty()) {
        ctx.err << "zonara find: " << problem << "\n";
        return 1;
    }

    prepareWorld(ctx);
    CityCatalog catalog(ctx.paths);
    const std::vector<CityHit> hits = catalog.search(text, limit);
    if (hits.empty()) {
        ctx.err << "zonara find: no city name contains '" << text << "'\n";
        return 1;
    }
    TablePrinter table({"City", "Country"});
    for (const CityHit& hit : hits) {
        table.add({catalog.city(hit).name, catalog.countries()[hit.country].name});
    }
    table.print(ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

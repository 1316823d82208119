#include "app/WorldAccess.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

#include "core/Text.h"
#include "core/WorldFiles.h"

namespace zonara {

namespace {

constexpr std::size_t maxSuggestions = 5;

// Names equal to the word without regard to case come first, then names that
// begin with it, then names that contain it.
int closeness(const std::string& lowerName, const std::string& lowerWord) {
    if (lowerName == lowerWord) {
        return 0;
    }
    const std::size_t at = lowerName.find(lowerWord);
    if (at == 0) {
        return 1;
    }
    return at != std::string::npos ? 2 : -1;
}

struct Suggestion {
    int rank;
    std::string text;
};

void reportNoMatch(std::ostream& err, std::string_view kind, const std::string& word,
                   std::vector<Suggestion> suggestions) {
    std::stable_sort(suggestions.begin(), suggestions.end(),
                     [](const Suggestion& a, const Suggestion& b) { return a.rank < b.rank; });
    err << "zonara: no " << kind << " named '" << word << "'";
    if (!suggestions.empty()) {
        err << "; did you mean:";
        for (std::size_t i = 0; i < std::min(maxSuggestions, suggestions.size()); ++i) {
            err << (i == 0 ? " " : ", ") << suggestions[i].text;
        }
    }
    err << "\n";
}

} // namespace

std::string twoDecimals(float value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", double(value));
    return text;
}

bool expectNoMoreArgs(CommandContext& ctx, Args& args, std::string_view command,
                      std::string_view hint) {
    const std::vector<std::string> extra = args.positionals();
    if (args.ok() && extra.empty()) {
        return true;
    }
    ctx.err << "zonara " << command << ": ";
    if (!args.ok()) {
        ctx.err << args.error();
    } else {
        ctx.err << "unexpected '" << extra.front() << "'" << (hint.empty() ? "" : "; ") << hint;
    }
    ctx.err << "\n";
    return false;
}

ClockSetup loadClockSetup(CommandContext& ctx) {
    prepareWorld(ctx);
    ClockSetup setup;
    setup.settings.Load(ctx.paths.dataFile(settingsFileName));
    loadDstRules(ctx.paths, setup.rules);
    return setup;
}

bool prepareWorld(CommandContext& ctx) {
    if (!dataFilesChanged(ctx.paths)) {
        return true;
    }
    ctx.err << "Data Changed\nPreparing data\n";
    CountryList list;
    switch (rebuildDataFiles(ctx.paths, list)) {
    case RebuildResult::Done:
        return true;
    case RebuildResult::NotWritten:
        ctx.err << "zonara: cannot rewrite the world files in '" << ctx.paths.dataDir().string()
                << "'; using them as they are\n";
        return false;
    case RebuildResult::StampNotWritten:
        ctx.err << "zonara: cannot write '" << ctx.paths.dataFile(stampFileName).string()
                << "'; the world files will be prepared again next time\n";
        return false;
    }
    return false;
}

const Country* findCountry(CommandContext& ctx, CountryList& countries,
                           const std::string& countryName) {
    loadCountries(ctx.paths, countries, false);
    if (const Country* country = findCountryByName(countries, countryName)) {
        return country;
    }
    const std::string word = asciiLower(countryName);
    std::vector<Suggestion> suggestions;
    for (const Country& country : countries) {
        if (const int rank = closeness(asciiLower(country.name), word); rank >= 0) {
            suggestions.push_back({rank, country.name});
        }
    }
    reportNoMatch(ctx.err, "country", countryName, std::move(suggestions));
    return nullptr;
}

std::optional<CityMatch> findCity(CommandContext& ctx, CountryList& countries,
                                  const std::string& cityName,
                                  const std::optional<std::string>& countryName) {
    loadCountries(ctx.paths, countries, false);
    std::vector<Country*> searched;
    if (countryName) {
        if (findCountry(ctx, countries, *countryName) == nullptr) {
            return std::nullopt;
        }
        searched.push_back(findCountryByName(countries, *countryName));
    } else {
        for (Country& country : countries) {
            searched.push_back(&country);
        }
    }
    for (Country* country : searched) {
        loadCities(ctx.paths, *country, false);
        if (const City* city = findCityByName(*country, cityName)) {
            return CityMatch{country, city};
        }
    }
    const std::string word = asciiLower(cityName);
    std::vector<Suggestion> suggestions;
    for (const Country* country : searched) {
        for (const City& city : country->cities) {
            if (const int rank = closeness(asciiLower(city.name), word); rank >= 0) {
                suggestions.push_back({rank, city.name + " (" + country->name + ")"});
            }
        }
    }
    reportNoMatch(ctx.err, "city", cityName, std::move(suggestions));
    return std::nullopt;
}

namespace {

// Display width in characters, counting each UTF-8 sequence once.
std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    for (const char c : text) {
        width += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    }
    return width;
}

} // namespace

void TablePrinter::print(std::ostream& out, bool tsv) const {
    if (tsv) {
        for (const auto& row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                out << (i == 0 ? "" : "\t") << row[i];
            }
            out << "\n";
        }
        return;
    }
    std::vector<std::size_t> widths(header.size(), 0);
    for (std::size_t i = 0; i < header.size(); ++i) {
        widths[i] = displayWidth(header[i]);
    }
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i) {
            widths[i] = std::max(widths[i], displayWidth(row[i]));
        }
    }
    auto printRow = [&](const std::vector<std::string>& row) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i];
            if (i + 1 < row.size()) {
                line.append(widths[i] - displayWidth(row[i]) + 2, ' ');
            }
        }
        out << line << "\n";
    };
    printRow(header);
    for (const auto& row : rows) {
        printRow(row);
    }
}

} // namespace zonara

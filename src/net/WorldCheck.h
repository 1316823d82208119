#pragma once
// Whether three world files would load as world data: what a download must
// pass before it may replace the installed files.

#include <filesystem>
#include <string_view>

namespace zonara {

enum class WorldProblem {
    None,
    NoCountries,        // the country file is missing or empty
    BadCountryLine,     // not "id TAB offset TAB name" with numbers where numbers go
    RepeatedCountry,    // two countries share an id
    NoCities,           // the city file is missing or empty
    BadCityLine,        // not eleven fields with numbers where numbers go
    CityWithoutCountry, // a city the loaders would never reach: its country is missing
                        // or its lines are not together
    UnknownRule,        // a city names a rule the rule file does not have
    BadRule,            // a rule text that does not resolve to a day and time
};

struct WorldFileSet {
    std::filesystem::path country;
    std::filesystem::path city;
    std::filesystem::path daylight;
};

// Loads the files with the world readers under their installed names, through
// links in a scratch folder made (and removed) inside scratchParent.
WorldProblem checkWorldFiles(const WorldFileSet& files, const std::filesystem::path& scratchParent);

// "LastSunMar 01:00", "FirstSunAfter08Mar 02:00", "15Oct 03:00": a form the
// reader knows, real weekday and month names, a day that exists, an hour and
// minutes in range.
bool ruleTextResolves(std::string_view text);

} // namespace zonara

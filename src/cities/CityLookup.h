#pragma once
// Finding one city, or one country, by its name as people type it.

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "cities/CityCatalog.h"

namespace zonara {

enum class LookupOutcome {
    Found,     // one fits: the only candidate
    Blank,     // the name has no letter or digit: no candidates
    Ambiguous, // several fit: every one of them, in name order
    NotFound,  // none fits: the closest names, closest first (maybe none)
};

// How many close names a failed lookup offers at most.
inline constexpr std::size_t suggestionLimit = 5;

struct CountryLookup {
    LookupOutcome outcome = LookupOutcome::NotFound;
    std::vector<std::size_t> candidates; // indexes into the catalog's countries
};

struct CityLookup {
    LookupOutcome outcome = LookupOutcome::NotFound;
    std::vector<CityHit> candidates;
    // NotFound in one country: nothing there came close, so the close names
    // come from every country.
    bool fromOtherCountries = false;
};

// Names are compared by their search keys (case, accents and punctuation do
// not count). A name fits when its key equals the typed one; only when none
// does, the names that begin with it fit. A name that fits none is matched
// against every name for misspellings: up to one letter wrong, missing, extra
// or swapped in a short name, two from five letters on, against the whole
// name or its beginning; names that merely contain the text come last.
CountryLookup lookupCountry(CityCatalog& catalog, std::string_view typed);
// In every country, or only in the country with that index.
CityLookup lookupCity(CityCatalog& catalog, std::string_view typed,
                      std::optional<std::size_t> country = std::nullopt);

} // namespace zonara

#include "cities/CityLookup.h"

#include <algorithm>
#include <string>

#include "cities/NameDistance.h"
#include "cities/SearchKey.h"
#include "core/Text.h"

namespace zonara {

namespace {

// Positions into a list of keys, with what became of the lookup.
struct Choice {
    LookupOutcome outcome = LookupOutcome::NotFound;
    std::vector<std::size_t> picks;
};

// The misspellings a name of this length may carry and still be offered.
std::size_t allowedEdits(std::size_t length) {
    if (length <= 2) {
        return 0;
    }
    return length <= 4 ? 1 : 2;
}

// The close names among keys, ranked: whole-name misspellings by edits, each
// just ahead of the names whose beginning is as far off, then names that
// contain the text. Equal ranks keep the keys' order.
std::vector<std::size_t> closest(const std::string& wanted,
                                 const std::vector<std::string_view>& keys) {
    const std::u16string typed = toUtf16(wanted);
    const std::size_t allowed = allowedEdits(typed.size());
    struct Ranked {
        std::size_t rank;
        std::size_t position;
    };
    std::vector<Ranked> ranked;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const NameDistance distance = nameDistance(typed, toUtf16(keys[i]));
        if (distance.whole <= allowed) {
            ranked.push_back({2 * distance.whole, i});
        } else if (distance.toPrefix <= allowed) {
            ranked.push_back({2 * distance.toPrefix + 1, i});
        } else if (keys[i].find(wanted) != std::string_view::npos) {
            ranked.push_back({2 * allowed + 2, i});
        }
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const Ranked& a, const Ranked& b) { return a.rank < b.rank; });
    std::vector<std::size_t> picks;
    for (std::size_t i = 0; i < ranked.size() && i < suggestionLimit; ++i) {
        picks.push_back(ranked[i].position);
    }
    return picks;
}

// Exact keys first, then beginnings; one is found, several are ambiguous.
Choice choose(const std::string& wanted, const std::vector<std::string_view>& keys) {
    Choice choice;
    if (wanted.empty()) {
        choice.outcome = LookupOutcome::Blank;
        return choice;
    }
    for (const bool whole : {true, false}) {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (whole ? keys[i] == wanted : keys[i].starts_with(wanted)) {
                choice.picks.push_back(i);
            }
        }
        if (!choice.picks.empty()) {
            choice.outcome =
                choice.picks.size() == 1 ? LookupOutcome::Found : LookupOutcome::Ambiguous;
            return choice;
        }
    }
    choice.picks = closest(wanted, keys);
    return choice;
}

} // namespace

CountryLookup lookupCountry(CityCatalog& catalog, std::string_view typed) {
    const CountryList& countries = catalog.countries();
    std::vector<std::string> keyText;
    keyText.reserve(countries.size());
    for (const Country& country : countries) {
        keyText.push_back(searchKey(country.name));
    }
    std::vector<std::size_t> order(countries.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return keyText[a] < keyText[b]; });
    std::vector<std::string_view> keys;
    keys.reserve(order.size());
    for (const std::size_t i : order) {
        keys.push_back(keyText[i]);
    }

    const Choice choice = choose(searchKey(typed), keys);
    CountryLookup lookup{choice.outcome, {}};
    for (const std::size_t pick : choice.picks) {
        lookup.candidates.push_back(order[pick]);
    }
    return lookup;
}

CityLookup lookupCity(CityCatalog& catalog, std::string_view typed,
                      std::optional<std::size_t> country) {
    const std::vector<KeyedCity>& all = catalog.keyedCities();
    const auto namesIn = [&](std::optional<std::size_t> only) {
        std::vector<const KeyedCity*> entries;
        for (const KeyedCity& entry : all) {
            if (!only || entry.hit.country == *only) {
                entries.push_back(&entry);
            }
        }
        std::sort(entries.begin(), entries.end(), [&](const KeyedCity* a, const KeyedCity* b) {
            return catalog.inNameOrder(*a, *b);
        });
        return entries;
    };
    const auto keysOf = [](const std::vector<const KeyedCity*>& entries) {
        std::vector<std::string_view> keys;
        keys.reserve(entries.size());
        for (const KeyedCity* entry : entries) {
            keys.push_back(entry->key);
        }
        return keys;
    };

    const std::string wanted = searchKey(typed);
    std::vector<const KeyedCity*> entries = namesIn(country);
    Choice choice = choose(wanted, keysOf(entries));
    CityLookup lookup;
    if (choice.outcome == LookupOutcome::NotFound && choice.picks.empty() && country) {
        entries = namesIn(std::nullopt);
        choice.picks = closest(wanted, keysOf(entries));
        lookup.fromOtherCountries = !choice.picks.empty();
    }
    lookup.outcome = choice.outcome;
    for (const std::size_t pick : choice.picks) {
        lookup.candidates.push_back(entries[pick]->hit);
    }
    return lookup;
}

} // namespace zonara

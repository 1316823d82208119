#include "cities/CityLookup.h"

#include <algorithm>
#include <functional>
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

// Whether the key at one position is listed before the key at another.
using ListOrder = std::function<bool(std::size_t, std::size_t)>;

// The misspellings a name of this length may carry and still be offered.
std::size_t allowedEdits(std::size_t length) {
    if (length <= 2) {
        return 0;
    }
    return length <= 4 ? 1 : 2;
}

// The close names among keys, ranked: whole-name misspellings by edits, each
// just ahead of the names whose beginning is as far off, then names that
// contain the text. Equal ranks follow the list order.
std::vector<std::size_t> closest(const std::string& wanted,
                                 const std::vector<std::string_view>& keys,
                                 const ListOrder& before) {
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
    std::sort(ranked.begin(), ranked.end(), [&](const Ranked& a, const Ranked& b) {
        return a.rank != b.rank ? a.rank < b.rank : before(a.position, b.position);
    });
    std::vector<std::size_t> picks;
    for (std::size_t i = 0; i < ranked.size() && i < suggestionLimit; ++i) {
        picks.push_back(ranked[i].position);
    }
    return picks;
}

// Exact keys first, then beginnings; one is found, several are ambiguous.
Choice choose(const std::string& wanted, const std::vector<std::string_view>& keys,
              const ListOrder& before) {
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
            std::sort(choice.picks.begin(), choice.picks.end(), before);
            choice.outcome =
                choice.picks.size() == 1 ? LookupOutcome::Found : LookupOutcome::Ambiguous;
            return choice;
        }
    }
    choice.picks = closest(wanted, keys, before);
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
    const std::vector<std::string_view> keys(keyText.begin(), keyText.end());
    const ListOrder byName = [&](std::size_t a, std::size_t b) {
        return keys[a] != keys[b] ? keys[a] < keys[b] : a < b;
    };
    const Choice choice = choose(searchKey(typed), keys, byName);
    return {choice.outcome, choice.picks};
}

CityLookup lookupCity(CityCatalog& catalog, std::string_view typed,
                      std::optional<std::size_t> country) {
    const std::vector<KeyedCity>& all = catalog.keyedCities();
    std::vector<const KeyedCity*> entries;
    std::vector<std::string_view> keys;
    const auto collect = [&](std::optional<std::size_t> only) {
        entries.clear();
        keys.clear();
        for (const KeyedCity& entry : all) {
            if (!only || entry.hit.country == *only) {
                entries.push_back(&entry);
                keys.push_back(entry.key);
            }
        }
    };
    const ListOrder byName = [&](std::size_t a, std::size_t b) {
        return catalog.inNameOrder(*entries[a], *entries[b]);
    };

    const std::string wanted = searchKey(typed);
    collect(country);
    Choice choice = choose(wanted, keys, byName);
    CityLookup lookup;
    if (choice.outcome == LookupOutcome::NotFound && choice.picks.empty() && country) {
        collect(std::nullopt);
        choice.picks = closest(wanted, keys, byName);
        lookup.fromOtherCountries = !choice.picks.empty();
    }
    lookup.outcome = choice.outcome;
    for (const std::size_t pick : choice.picks) {
        lookup.candidates.push_back(entries[pick]->hit);
    }
    return lookup;
}

} // namespace zonara

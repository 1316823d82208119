#include "app/cli/CityChoice.h"

#include <set>

#include "cities/CityLookup.h"

namespace zonara {

namespace {

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string quoted(std::string_view text) {
    std::string result = "'";
    result += text;
    result += '\'';
    return result;
}

std::string nameOfBlank(std::string_view what, std::string_view typed) {
    if (isBlank(typed)) {
        return "the " + std::string(what) + "'s name is empty";
    }
    return quoted(typed) + " is not a " + std::string(what) + "'s name: it has no letters";
}

// The close names offered after a name that fits none.
std::string didYouMean(const std::vector<std::string>& names) {
    std::string text = "; did you mean: ";
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "" : ", ") + names[i];
    }
    return text + "?";
}

std::string cityAndCountry(CityCatalog& catalog, const CityHit& hit) {
    return catalog.city(hit).name + " (" + catalog.countries()[hit.country].name + ")";
}

std::string ambiguousCity(CityCatalog& catalog, std::string_view typed, const CityLookup& lookup,
                          const std::optional<std::string>& country) {
    std::set<std::size_t> countries;
    for (const CityHit& hit : lookup.candidates) {
        countries.insert(hit.country);
    }
    std::string text =
        quoted(typed) + " fits " + std::to_string(lookup.candidates.size()) + " cities" +
        (countries.size() > 1 && !country ? "; add --country or type more of the name:"
                                          : "; type more of the name:");
    const std::size_t shown = std::min(ambiguousListLimit, lookup.candidates.size());
    for (std::size_t i = 0; i < shown; ++i) {
        text += "\n  " + cityAndCountry(catalog, lookup.candidates[i]);
    }
    if (shown < lookup.candidates.size()) {
        text += "\n  ... and " + std::to_string(lookup.candidates.size() - shown) +
                " more; 'zonara find " + std::string(typed) + "' lists them all";
    }
    return text;
}

} // namespace

Expected<std::size_t> chooseCountry(CityCatalog& catalog, std::string_view typed) {
    const CountryLookup lookup = lookupCountry(catalog, typed);
    const CountryList& countries = catalog.countries();
    std::vector<std::string> names;
    for (const std::size_t index : lookup.candidates) {
        names.push_back(countries[index].name);
    }
    switch (lookup.outcome) {
    case LookupOutcome::Found:
        return lookup.candidates.front();
    case LookupOutcome::Blank:
        return fail("--country: " + nameOfBlank("country", typed));
    case LookupOutcome::Ambiguous: {
        std::string text = quoted(typed) + " fits " + std::to_string(names.size()) +
                           " countries; type more of the name:";
        for (const std::string& name : names) {
            text += "\n  " + name;
        }
        return fail(text);
    }
    case LookupOutcome::NotFound:
        break;
    }
    return fail("no country named " + quoted(typed) +
                (names.empty() ? "; 'zonara cities' lists the countries" : didYouMean(names)));
}

Expected<ChosenCity> chooseCity(CityCatalog& catalog, std::string_view typed,
                                const std::optional<std::string>& country) {
    std::optional<std::size_t> countryIndex;
    if (country) {
        const Expected<std::size_t> chosen = chooseCountry(catalog, *country);
        if (!chosen) {
            return chosen.error();
        }
        countryIndex = *chosen;
    }
    const CityLookup lookup = lookupCity(catalog, typed, countryIndex);
    switch (lookup.outcome) {
    case LookupOutcome::Found: {
        const CityHit hit = lookup.candidates.front();
        return ChosenCity{hit.country, &catalog.countries()[hit.country], &catalog.city(hit)};
    }
    case LookupOutcome::Blank:
        return fail(nameOfBlank("city", typed));
    case LookupOutcome::Ambiguous:
        return fail(ambiguousCity(catalog, typed, lookup, country));
    case LookupOutcome::NotFound:
        break;
    }
    std::string text = "no city named " + quoted(typed);
    if (countryIndex) {
        text += " in " + catalog.countries()[*countryIndex].name;
    }
    if (lookup.candidates.empty()) {
        return fail(text + "; 'zonara find TEXT' looks for a part of a name");
    }
    std::vector<std::string> names;
    for (const CityHit& hit : lookup.candidates) {
        names.push_back(cityAndCountry(catalog, hit));
    }
    return fail(text + didYouMean(names));
}

} // namespace zonara

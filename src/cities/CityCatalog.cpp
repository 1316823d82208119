#include "cities/CityCatalog.h"

#include <algorithm>

#include "cities/SearchKey.h"
#include "core/WorldFiles.h"

namespace zonara {

const CountryList& CityCatalog::countries() {
    if (!countriesLoaded) {
        loadCountries(paths, list, true);
        citiesLoaded.assign(list.size(), false);
        countriesLoaded = true;
    }
    return list;
}

const std::vector<City>& CityCatalog::cities(std::size_t countryIndex) {
    countries();
    Country& country = list.at(countryIndex);
    if (!citiesLoaded[countryIndex]) {
        // The recorded offset is trusted: the files were rebuilt before use
        // whenever they changed.
        loadCities(paths, country, false);
        citiesLoaded[countryIndex] = true;
    }
    return country.cities;
}

const City& CityCatalog::city(CityHit hit) {
    return cities(hit.country).at(hit.city);
}

const std::vector<KeyedCity>& CityCatalog::keyedCities() {
    if (!searchIndexBuilt) {
        const std::size_t countryCount = countries().size();
        for (std::size_t c = 0; c < countryCount; ++c) {
            const std::vector<City>& found = cities(c);
            for (std::size_t i = 0; i < found.size(); ++i) {
                searchIndex.push_back({searchKey(found[i].name), {c, i}});
            }
        }
        searchIndexBuilt = true;
    }
    return searchIndex;
}

// Alphabetical by the folded name, then by the name as written, so "Sao" and
// "São" keep one order; equal names follow their countries' order.
bool CityCatalog::inNameOrder(const KeyedCity& a, const KeyedCity& b) const {
    if (a.key != b.key) {
        return a.key < b.key;
    }
    const std::string& nameA = list[a.hit.country].cities[a.hit.city].name;
    const std::string& nameB = list[b.hit.country].cities[b.hit.city].name;
    if (nameA != nameB) {
        return nameA < nameB;
    }
    if (a.hit.country != b.hit.country) {
        return a.hit.country < b.hit.country;
    }
    return a.hit.city < b.hit.city;
}

std::vector<CityHit> CityCatalog::search(std::string_view text, std::size_t limit) {
    const std::string wanted = searchKey(text);
    if (wanted.empty() || limit == 0) {
        return {};
    }

    struct Match {
        bool startsWith;
        const KeyedCity* entry;
    };
    std::vector<Match> matches;
    for (const KeyedCity& entry : keyedCities()) {
        const std::size_t at = entry.key.find(wanted);
        if (at != std::string::npos) {
            matches.push_back({at == 0, &entry});
        }
    }
    const auto before = [this](const Match& a, const Match& b) {
        if (a.startsWith != b.startsWith) {
            return a.startsWith;
        }
        return inNameOrder(*a.entry, *b.entry);
    };
    const std::size_t kept = std::min(limit, matches.size());
    std::partial_sort(matches.begin(), matches.begin() + std::ptrdiff_t(kept), matches.end(),
                      before);

    std::vector<CityHit> hits;
    hits.reserve(kept);
    for (std::size_t i = 0; i < kept; ++i) {
        hits.push_back(matches[i].entry->hit);
    }
    return hits;
}

std::optional<StartPoint> CityCatalog::locate(std::string_view countryName,
                                              std::string_view cityName) {
    const CountryList& all = countries();
    const Country* country = findCountryByName(all, countryName);
    if (country == nullptr) {
        return std::nullopt;
    }
    StartPoint start{std::size_t(country - all.data()), std::nullopt};
    const std::vector<City>& found = cities(start.country);
    if (const City* city = findCityByName(list[start.country], cityName); city != nullptr) {
        start.city = std::size_t(city - found.data());
    }
    return start;
}

void CityCatalog::reload() {
    list.clear();
    citiesLoaded.clear();
    countriesLoaded = false;
    searchIndex.clear();
    searchIndexBuilt = false;
}

} // namespace zonara

#pragma once
// The countries and cities to choose from, loaded as needed, and the city search.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Country.h"
#include "core/Paths.h"

namespace zonara {

// A city by its place in the catalog: the country's index in the country list
// and the city's index among that country's cities.
struct CityHit {
    std::size_t country = 0;
    std::size_t city = 0;

    friend bool operator==(const CityHit&, const CityHit&) = default;
};

// Where a city selection starts: the slot's country, and its city when the
// country still has it.
struct StartPoint {
    std::size_t country = 0;
    std::optional<std::size_t> city;

    friend bool operator==(const StartPoint&, const StartPoint&) = default;
};

// A city with its name's search key.
struct KeyedCity {
    std::string key; // searchKey of the city's name
    CityHit hit;
};

class CityCatalog {
  public:
    explicit CityCatalog(Paths paths) : paths(std::move(paths)) {}

    // The country list in file order, read from the files on the first call only.
    const CountryList& countries();
    // A country's cities, read on the first call for that country only.
    const std::vector<City>& cities(std::size_t countryIndex);
    const City& city(CityHit hit);

    // Cities whose name contains `text` without regard to case or accents, in
    // every country: names that start with it first, then the others, each
    // group in alphabetical order; at most `limit`. Empty or blank text finds
    // nothing. The first search reads every country's cities and keeps them.
    std::vector<CityHit> search(std::string_view text, std::size_t limit);

    // Every city of every country with its search key, in catalog order; read
    // and kept on the first call.
    const std::vector<KeyedCity>& keyedCities();
    // The order searches list cities in: by search key, then by the name as
    // written, then by place in the catalog. For cities of keyedCities().
    bool inNameOrder(const KeyedCity& a, const KeyedCity& b) const;

    // The country and city with exactly these names (as a clock slot keeps
    // them); nothing when the country is not in the list.
    std::optional<StartPoint> locate(std::string_view countryName, std::string_view cityName);

    // Forgets everything read, so the next use reads the files again (after
    // the world files were replaced).
    void reload();

  private:
    Paths paths;
    CountryList list;
    bool countriesLoaded = false;
    std::vector<bool> citiesLoaded; // by country index; an empty country counts too
    std::vector<KeyedCity> searchIndex;
    bool searchIndexBuilt = false;
};

} // namespace zonara

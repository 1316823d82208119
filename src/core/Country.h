#pragma once
// One country of the world files; its cities are loaded on first use.

#include <cstdint>
#include <string>
#include <vector>

#include "core/City.h"

namespace zonara {

struct Country {
    std::string name;
    std::int32_t firstCityOffset = 0; // byte offset of its first line in the city file
    std::int32_t id = 0;
    std::vector<City> cities; // empty until loadCities
};

using CountryList = std::vector<Country>;

} // namespace zonara

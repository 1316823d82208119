#pragma once
// One city of the world files, with everything a clock slot copies from it.

#include <cstdint>
#include <string>

namespace zonara {

struct City {
    std::string name;
    float longitude = 0; // degrees, east positive
    float latitude = 0;  // degrees, north positive
    std::string airportCode;
    std::string countryDialCode;
    std::string areaDialCode;
    std::int32_t timeZoneIndex = 0;
    std::int8_t dstRuleIndex = 0; // 0 none, else 1-based line of the rule file
    std::string stationCode;
    std::string weatherQuery;
};

} // namespace zonara

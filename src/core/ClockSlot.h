#pragma once
// One shown city, copied out of the world files so it shows without them.

#include <cstdint>
#include <string>

namespace zonara {

struct City;
struct Country;

struct ClockSlot {
    std::u16string countryName = u"United Kingdom";
    std::u16string cityName = u"London";
    std::u16string airportCode = u"LHR";
    std::u16string dialCode = u"+44 20";
    std::int32_t timeZoneIndex = 85;
    std::int32_t dstRuleIndex = 1;
    float longitude = -0.06f;
    float latitude = 51.51f;
    std::u16string stationCode = u"EGLC";
    std::u16string weatherQuery = u"London%2C+GB";

    void Assign(const Country& country, const City& city);

    friend bool operator==(const ClockSlot&, const ClockSlot&) = default;
};

} // namespace zonara

#include "core/ClockSlot.h"

#include "core/Country.h"
#include "core/Text.h"

namespace zonara {

void ClockSlot::Assign(const Country& country, const City& city) {
    countryName = toUtf16(country.name);
    cityName = toUtf16(city.name);
    airportCode = toUtf16(city.airportCode);
    // "+%s %s": without an area code the space stays.
    dialCode = toUtf16("+" + city.countryDialCode + " " + city.areaDialCode);
    timeZoneIndex = city.timeZoneIndex;
    dstRuleIndex = city.dstRuleIndex;
    longitude = city.longitude;
    latitude = city.latitude;
    stationCode = toUtf16(city.stationCode);
    weatherQuery = toUtf16(city.weatherQuery);
}

} // namespace zonara

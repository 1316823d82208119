#include "globe/SunAltitude.h"

#include <algorithm>
#include <cmath>

#include "globe/AngleFactors.h"
#include "globe/SolarPosition.h"
#include "globe/SunTimes.h"

namespace zonara {

using namespace astro;

double sunAltitude(const SystemTime& utc, double longitude, double latitude) {
    const double hoursUT =
        utc.hour + utc.minute * 0.016666666666666666 + utc.second * 0.0002777777777777778;
    const double declination = SolarDeclination(utc.day, utc.month, utc.year, hoursUT);
    // The Greenwich hour angle grows westward; a place east of Greenwich is further on.
    const double localHourAngle =
        SunGreenwichHourAngle(utc.day, utc.month, utc.year, hoursUT) + longitude;
    const double sinAltitude =
        std::sin(latitude * k) * std::sin(declination * k) +
        std::cos(latitude * k) * std::cos(declination * k) * std::cos(localHourAngle * k);
    return std::asin(std::clamp(sinAltitude, -1.0, 1.0)) * radToDeg;
}

bool sunIsUp(const SystemTime& utc, double longitude, double latitude) {
    return sunAltitude(utc, longitude, latitude) > 90.0 - officialZenith;
}

} // namespace zonara

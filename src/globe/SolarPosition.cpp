#include "globe/SolarPosition.h"

#include <cmath>

#include "globe/AngleFactors.h"

namespace zonara {

using namespace astro;

int solarDayCount(int day, int month, int year) {
    const int base = month * 31 + year * 365 + day - 46;
    if (month >= 3) {
        return base + static_cast<int>(year * 0.25) - static_cast<int>(month * 0.4 + 2.3);
    }
    return base + (year - 1) / 4;
}

double SolarDeclination(int day, int month, int year, double hoursUT) {
    const int d = solarDayCount(day, month, year);
    const double x = (d - 693960) * 0.0006844626967830253; // four-year cycles
    const double n = std::trunc(x);
    const double meanAnomaly =
        (x - n) * 1440.02509 + n * 0.0307572 + hoursUT * 0.04106935416666667 + 356.6498973;
    const double c = meanAnomaly + 1.91233 * std::sin(meanAnomaly * kAnomaly);
    const double turns = (c + 0.02 * std::sin(c * kAnomaly2) + 282.55462) * 0.002777777777777778;
    const double lambda = (turns - std::trunc(turns)) * 360;
    const double centuries = (year - 2000) * 0.01;
    const double obliquity = 23.43929111 - ((0.00059 - 0.001813 * centuries) * centuries + 46.815) *
                                               centuries * 0.0002777777777777778;
    const double s = std::sin(obliquity * k) * std::sin(lambda * k);
    return std::atan(s / std::sqrt(1 - s * s)) * radToDeg + 0.00075;
}

double SunGreenwichHourAngle(int day, int month, int year, double hoursUT) {
    const int d = solarDayCount(day, month, year);
    const double h = hoursUT * 0.041666666666666664;
    const double l = ((d + h - 722449.0) * 0.98564734 + 279.306) * k;
    // Equation of time in seconds.
    const double e = 595.63 * std::sin(2 * l) - (429.266 * std::cos(l) + 104.55 * std::sin(l)) -
                     2.283 * std::cos(2 * l) + 18.7333 * std::cos(3 * l) + 4.6 * std::sin(3 * l) -
                     13.2 * std::sin(4 * l) - std::cos(5 * l) -
                     0.3333333333333333 * std::sin(5 * l) + 0.5 * std::sin(6 * l) + 0.231;
    double g = e * 0.004166666666666667 + (h + 0.5) * 360;
    // Strictly greater: exactly 360 stays 360.
    if (g > 360) {
        g -= 360;
    }
    return g;
}

int TerminatorLatitude(int hourAngleDeg, double declination) {
    const double deg =
        std::atan((-1 / std::tan(declination * k)) * std::cos(hourAngleDeg * k)) * radToDeg;
    if (std::isnan(deg)) {
        return 0;
    }
    return static_cast<int>(deg);
}

} // namespace zonara

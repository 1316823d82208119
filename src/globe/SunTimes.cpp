#include "globe/SunTimes.h"

#include <cmath>
#include <cstdint>

#include "globe/AngleFactors.h"

namespace zonara {

using namespace astro;

namespace {

constexpr double oneOver24 = 0.041666666666666664;
constexpr double oneOver90 = 0.011111111111111112;

// Approximate time of the event as a day of the year with a fraction.
double approximateTime(int dayOfYear, double lngHour, SunEvent event) {
    const double base = event == SunEvent::Sunrise ? 6.0 : 18.0;
    return dayOfYear + (base - lngHour) * oneOver24;
}

} // namespace

int DayOfYear(int year, int month, int day) {
    const int n1 = (275 * month) / 9;
    const int n2 = (month + 9) / 12;
    const int n3 = 1 + ((year % 4) + 2) / 3;
    return n1 - n2 * n3 + day - 30;
}

SunTime HoursToHms(double hours) {
    if (!std::isfinite(hours)) {
        return {};
    }
    // Only absurd inputs come this far from the day; fold them so the loops below end.
    // Values the method produces (about -14 to 40 hours) never take this branch.
    if (std::fabs(hours) > 1e6) {
        hours = std::fmod(hours, 24.0);
    }
    while (hours < 0) {
        hours += 24;
    }
    while (hours >= 24) {
        hours -= 24;
    }
    SunTime t;
    t.hour = static_cast<std::int32_t>(hours);
    const double x = (hours - t.hour) * 60;
    t.minute = static_cast<std::int32_t>(x);
    t.second = static_cast<std::int32_t>((x - t.minute) * 60);
    return t;
}

SunTime SunEventTime(int year, int month, int day, double longitude, double latitude, double zenith,
                     SunEvent event) {
    const int n = DayOfYear(year, month, day);
    double lngHour = longitude / 15;
    double t = approximateTime(n, lngHour, event);

    const double m = 0.9856 * t - 3.289;

    double l = m + 1.916 * std::sin(m * k) + 0.02 * std::sin(m * k2) + 282.634;
    if (l >= 360) {
        l -= 360;
    }
    if (l < 0) {
        l += 360;
    }

    double ra = std::atan(0.91764 * std::tan(l * k)) * radToDegRightAscension;
    const double lQuadrant = std::floor(l * oneOver90) * 90;
    const double raQuadrant = std::floor(ra * oneOver90) * 90;
    ra = (lQuadrant - raQuadrant + ra) / 15;

    const double sinDec = 0.39782 * std::sin(l * k);
    const double cosDec = std::cos(std::asin(sinDec) * radToDeg * k);

    const double numerator = std::cos(zenith * k) - sinDec * std::sin(latitude * k);
    const double cosH = numerator / (cosDec * std::cos(latitude * k));
    if (!(cosH >= -1 && cosH <= 1)) {
        // The numerator's sign tells which: the denominator is positive except at the
        // poles, where the kept factor k turns cos(90 k) into a tiny negative number.
        return SunTime{0, 0, 0,
                       numerator < 0 ? SunEventState::PolarDay : SunEventState::PolarNight};
    }

    const double acosDeg = std::acos(cosH) * radToDeg;
    double h = event == SunEvent::Sunrise ? 360 - acosDeg : acosDeg;

    // The second pass uses 1/15 as a product, which can differ from the division above
    // in the last bit; both are kept.
    const double f = 1.0 / 15.0;
    h = h * f;
    lngHour = f * longitude;
    t = approximateTime(n, lngHour, event);

    const double localMean = h + ra - 0.06571 * t - 6.622;
    return HoursToHms(localMean - lngHour);
}

SunTime SunriseTime(int year, int month, int day, double longitude, double latitude,
                    double zenith) {
    return SunEventTime(year, month, day, longitude, latitude, zenith, SunEvent::Sunrise);
}

SunTime SunsetTime(int year, int month, int day, double longitude, double latitude, double zenith) {
    return SunEventTime(year, month, day, longitude, latitude, zenith, SunEvent::Sunset);
}

} // namespace zonara

#pragma once
// Sunrise and sunset in UT by the Almanac for Computers method, with its exact constants.

#include <array>
#include <cstdint>

namespace zonara {

enum class SunEvent : std::int32_t { Sunrise = 0, Sunset = 1 };

// Whether the sun crosses the zenith distance asked for on that day at that latitude.
// The published method has no such test: outside [-1, 1] its hour-angle cosine goes
// through acos and the clock time that comes out is whatever the platform makes of it.
// Here, instead, such a day is reported as PolarDay (the sun stays above the zenith
// distance: the cosine is below -1) or PolarNight (it stays below: the cosine is above
// 1), with the time fields 00:00:00. At latitude +-90 exactly, where cos(90 k) comes out
// as a tiny negative number, the sign of the cosine's numerator decides instead, so the
// pole gets the state the sun's altitude gives. A cosine that is not a number (only
// non-finite coordinates produce one) counts as PolarNight. Every day with a cosine in
// [-1, 1] gives exactly the published time. Sunrise and sunset are worked out for 6 h
// and 18 h local mean time, so on the first or last day of a polar night or day one of
// them can have a time while the other is polar.
enum class SunEventState : std::int32_t { Occurs, PolarDay, PolarNight };

// A time of day in UT; hour 0..23, minute and second 0..59.
struct SunTime {
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    SunEventState state = SunEventState::Occurs;

    friend bool operator==(const SunTime&, const SunTime&) = default;
};

// Zenith distances in degrees: official (90 deg 50'), civil, nautical, astronomical.
inline constexpr std::array<double, 4> zenithTable = {90.83333333333333, 96.0, 102.0, 108.0};
inline constexpr double officialZenith = zenithTable[0];

// Day of the year, 1-based. Every year divisible by 4 counts as a leap year (1900 too).
int DayOfYear(int year, int month, int day);

// Hours into a time of day: wrapped into [0, 24) by whole days, then truncated (not
// rounded) to hours, minutes and seconds. A non-finite value gives 00:00:00.
SunTime HoursToHms(double hours);

// Longitude and latitude in degrees, east and north positive; zenith in degrees.
SunTime SunEventTime(int year, int month, int day, double longitude, double latitude, double zenith,
                     SunEvent event);
SunTime SunriseTime(int year, int month, int day, double longitude, double latitude,
                    double zenith = officialZenith);
SunTime SunsetTime(int year, int month, int day, double longitude, double latitude,
                   double zenith = officialZenith);

} // namespace zonara

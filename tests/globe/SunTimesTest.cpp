#include "globe/SunTimes.h"

#include <limits>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(DayOfYear, CountsLeapYearsByTheYearModuloFour) {
    struct Row {
        int year, month, day, expected;
    };
    const Row rows[] = {
        {2006, 1, 1, 1},     {2006, 2, 28, 59},   {2006, 3, 1, 60}, {2006, 12, 31, 365},
        {2004, 3, 1, 61},    {2004, 12, 31, 366}, {1900, 3, 1, 61}, // 1900 counts as leap
        {2000, 12, 31, 366}, {2100, 12, 31, 366},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(DayOfYear(r.year, r.month, r.day), r.expected)
            << r.year << "-" << r.month << "-" << r.day;
    }
}

TEST(HoursToHms, WrapsByWholeDaysAndTruncates) {
    struct Row {
        double hours;
        SunTime expected;
    };
    const Row rows[] = {
        {-0.5, {23, 30, 0}},     {24.0, {0, 0, 0}},  {6.999, {6, 59, 56}}, // 59.94 min, 56.4 s
        {49.25, {1, 15, 0}},     {-24.0, {0, 0, 0}}, {-30.75, {17, 15, 0}},
        {23.9999, {23, 59, 59}}, {0.0, {0, 0, 0}},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(HoursToHms(r.hours), r.expected) << r.hours;
    }
    EXPECT_EQ(HoursToHms(std::numeric_limits<double>::quiet_NaN()), SunTime{});
    EXPECT_EQ(HoursToHms(std::numeric_limits<double>::infinity()), SunTime{});
    const SunTime huge = HoursToHms(1e300);
    EXPECT_GE(huge.hour, 0);
    EXPECT_LT(huge.hour, 24);
}

// Worked by hand from the method, key steps listed per row.
TEST(SunEventTime, MatchesHandWorkedCases) {
    struct Row {
        const char* what;
        int year, month, day;
        double longitude, latitude;
        SunEvent event;
        SunTime expected;
    };
    const Row rows[] = {
        // Wayne NJ, the method's own example. N = 176, lngHour = -4.9533, t = 176.4564,
        // M = 170.6264, L = 93.5660, RA = 6.2590 h, sinDec = 0.39705, cosDec = 0.91780,
        // cosH = -0.39571, H = (360 - 113.31) / 15 = 16.4460 h, T = 4.4881,
        // UT = 9.4414 -> 9:26:29 (26.48 min, 29.0 s).
        {"Wayne sunrise", 1990, 6, 25, -74.3, 40.9, SunEvent::Sunrise, {9, 26, 29}},
        // t = 176.9564, M = 171.1192, L = 94.0429, RA = 6.2936 h, cosH = -0.39546,
        // H = 113.30 / 15 = 7.5530 h, T = -4.4032, UT = 0.5501 -> 0:33:00.
        {"Wayne sunset", 1990, 6, 25, -74.3, 40.9, SunEvent::Sunset, {0, 33, 0}},
        // London at midsummer. Sunrise: t = 172.2504, M = 166.4809, L = 449.5538 - 360
        // = 89.5538 (first quadrant, RA 89.51 deg) -> RA = 5.9676 h; cosH = -0.57071,
        // H = 15.6800 h, UT = 3.7155 -> 3:42:55.
        {"London sunrise", 2006, 6, 21, -0.1276, 51.5072, SunEvent::Sunrise, {3, 42, 55}},
        // Sunset: L = 90.0308 lies in the second quadrant while atan gives -89.97 deg,
        // so RA = (90 + 90 - 89.97) / 15 = 6.0022 h; H = 8.3201 h, T = -3.6511,
        // UT = -3.6426 + 24 = 20.3574 -> 20:21:26.
        {"London sunset", 2006, 6, 21, -0.1276, 51.5072, SunEvent::Sunset, {20, 21, 26}},
        // Greenwich meridian on the equator at the equinox: N = 79, t = 79.25,
        // M = 74.8198, L = 359.3131, RA = 23.9580 h, sinDec = -0.00477, cosH = -0.01454,
        // H = 17.9444 h, T = 30.0729 -> 6:04:22 after taking 24 off.
        {"Equator sunrise", 2006, 3, 20, 0.0, 0.0, SunEvent::Sunrise, {6, 4, 22}},
        // Sydney in June: sunrise falls on the previous UT day (20:59 UT is 06:59 AEST).
        {"Sydney sunrise", 2006, 6, 21, 151.21, -33.87, SunEvent::Sunrise, {20, 59, 48}},
        {"Sydney sunset", 2006, 6, 21, 151.21, -33.87, SunEvent::Sunset, {6, 53, 40}},
        // Both sides of the date line.
        {"West of dateline", 2006, 1, 1, -179.9, 10.0, SunEvent::Sunrise, {18, 16, 45}},
        {"East of dateline", 2006, 1, 1, 179.9, 10.0, SunEvent::Sunset, {5, 50, 21}},
    };
    for (const Row& r : rows) {
        const SunTime t =
            SunEventTime(r.year, r.month, r.day, r.longitude, r.latitude, officialZenith, r.event);
        EXPECT_EQ(t, r.expected) << r.what << ": " << t.hour << ":" << t.minute << ":" << t.second;
    }
}

TEST(SunEventTime, ReportsPolarDayAndNightWithoutATime) {
    using S = SunEventState;
    struct Row {
        const char* what;
        int month, day;
        double longitude, latitude;
        SunEventState expected;
    };
    const Row rows[] = {
        {"Tromso midsummer", 6, 21, 18.95, 69.65, S::PolarDay},
        {"Tromso midwinter", 12, 21, 18.95, 69.65, S::PolarNight},
        {"McMurdo June", 6, 21, 166.67, -77.85, S::PolarNight},
        {"McMurdo December", 12, 21, 166.67, -77.85, S::PolarDay},
        {"McMurdo November", 11, 20, 166.67, -77.85, S::PolarDay},
        // At the poles cos(90 k) is a tiny negative number; the state still follows
        // the sun's altitude.
        {"North pole June", 6, 21, 0.0, 90.0, S::PolarDay},
        {"North pole December", 12, 21, 0.0, 90.0, S::PolarNight},
        // Declination -0.27 deg: the sun's centre is above -50' all day.
        {"North pole equinox", 3, 20, 0.0, 90.0, S::PolarDay},
        {"South pole June", 6, 21, 0.0, -90.0, S::PolarNight},
        {"South pole December", 12, 21, 0.0, -90.0, S::PolarDay},
    };
    for (const Row& r : rows) {
        for (SunEvent event : {SunEvent::Sunrise, SunEvent::Sunset}) {
            const SunTime t =
                SunEventTime(2006, r.month, r.day, r.longitude, r.latitude, officialZenith, event);
            EXPECT_EQ(t, (SunTime{0, 0, 0, r.expected})) << r.what;
        }
    }
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(SunriseTime(2006, 6, 21, 0.0, nan).state, S::PolarNight);
}

TEST(SunEventTime, TakesTheZenithAskedFor) {
    // London, 21 June: civil (96 deg) 2:55:09 before the official 3:42:55, nautical
    // (102 deg) 1:40:28 and 22:23:54; astronomical twilight never ends.
    const double lon = -0.1276, lat = 51.5072;
    EXPECT_EQ(SunriseTime(2006, 6, 21, lon, lat, zenithTable[1]), (SunTime{2, 55, 9}));
    EXPECT_EQ(SunriseTime(2006, 6, 21, lon, lat, zenithTable[2]), (SunTime{1, 40, 28}));
    EXPECT_EQ(SunsetTime(2006, 6, 21, lon, lat, zenithTable[2]), (SunTime{22, 23, 54}));
    EXPECT_EQ(SunriseTime(2006, 6, 21, lon, lat, zenithTable[3]).state, SunEventState::PolarDay);
}

} // namespace
} // namespace zonara

#include "globe/SolarPosition.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(SolarDayCount, RunsOnWithoutGapsAcrossMonthsAndYears) {
    struct Row {
        int day, month, year; // the day before
        int nextDay, nextMonth, nextYear;
    };
    const Row rows[] = {
        {28, 2, 2006, 1, 3, 2006}, {29, 2, 2004, 1, 3, 2004},   {31, 12, 2005, 1, 1, 2006},
        {31, 1, 2006, 1, 2, 2006}, {30, 4, 2006, 1, 5, 2006},   {31, 7, 2006, 1, 8, 2006},
        {31, 8, 2006, 1, 9, 2006}, {30, 11, 2006, 1, 12, 2006},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(solarDayCount(r.day, r.month, r.year) + 1,
                  solarDayCount(r.nextDay, r.nextMonth, r.nextYear))
            << r.day << "." << r.month << "." << r.year;
    }
    // 1 Jan 2000: 31 + 730000 + 1 - 46 + 1999 / 4 = 730485.
    EXPECT_EQ(solarDayCount(1, 1, 2000), 730485);
}

TEST(SolarDeclination, MatchesHandWorkedCases) {
    struct Row {
        int day, month, year;
        double hours, expected;
    };
    const Row rows[] = {
        // 1 Jan 2000 12:00: D = 730485, x = 25.0, n = 25, M = 357.9117, C = 357.8418,
        // lambda = 280.3949, T = 0, eps = 23.43929, s = -0.391249 -> -23.0315.
        {1, 1, 2000, 12.0, -23.03146784565495},
        // 21 Jun 2006 12:00: D = 732848, x = 26.6174, M = 1246.9928, lambda = 89.9700,
        // T = 0.06, eps = 23.43851, s = 0.397765 -> 23.4393.
        {21, 6, 2006, 12.0, 23.43925746488222},
        // Equinox 20 Mar 2006 18:26 UT: lambda = 0.00732, s = 5.08e-5 -> 0.00366
        // (0.00291 plus the 0.00075 offset).
        {20, 3, 2006, 18.4333, 0.0036628120066480654},
        // 22 Dec 2006 00:00: lambda = 270.0015 -> -23.4378.
        {22, 12, 2006, 0.0, -23.43776085126142},
    };
    for (const Row& r : rows) {
        EXPECT_NEAR(SolarDeclination(r.day, r.month, r.year, r.hours), r.expected, 1e-9)
            << r.day << "." << r.month << "." << r.year;
    }
}

TEST(SunGreenwichHourAngle, CarriesTheEquationOfTime) {
    struct Row {
        int day, month, year;
        double hours, expected;
    };
    const Row rows[] = {
        // 1 Jan 2000 noon: L = 143.125 rad, E = -201.13 s (sun 3m21s late),
        // G = -201.13 / 240 + 360 = 359.1620.
        {1, 1, 2000, 12.0, 359.1619565608216},
        // 3 Nov 2006 noon: E = +984.47 s, G = 364.1020, reduced once to 4.1020.
        {3, 11, 2006, 12.0, 4.101960256485995},
        // 11 Feb 2006 noon: E = -856.66 s (the year's lowest), G = 356.4306.
        {11, 2, 2006, 12.0, 356.43060039883454},
        // 15 Apr 2006 midnight: E = -10.40 s, G = 180 - 0.0433.
        {15, 4, 2006, 0.0, 179.9566800819617},
    };
    for (const Row& r : rows) {
        EXPECT_NEAR(SunGreenwichHourAngle(r.day, r.month, r.year, r.hours), r.expected, 1e-9)
            << r.day << "." << r.month << "." << r.year;
    }
    // At 12:00:03.05 UT on 15 Apr 2006 the equation of time (-3.05 s) cancels the
    // 0.0127 deg the hour adds: the sum is exactly 360, which stays 360, while the
    // double before that hour gives just under it.
    const double exact = 12.000846864902629;
    EXPECT_EQ(SunGreenwichHourAngle(15, 4, 2006, exact), 360.0);
    const double before = SunGreenwichHourAngle(15, 4, 2006, std::nextafter(exact, 0.0));
    EXPECT_LT(before, 360.0);
    EXPECT_GT(before, 359.9);
}

TEST(TerminatorLatitude, FollowsTheDeclination) {
    struct Row {
        int hourAngle;
        double declination;
        int expected;
    };
    const Row rows[] = {
        // tan 23.44 = 0.43356, -1 / 0.43356 = -2.3065, atan = -66.56 -> -66.
        {0, 23.44, -66},
        {180, 23.44, 66},
        // cos 45 = 0.7071: atan(-1.6309) = -58.48 -> -58.
        {45, 23.44, -58},
        // cos(90 k) is -4.4e-8, not 0: atan of a tiny positive number.
        {90, 23.44, 0},
        // Southern summer: tan(-10) = -0.17633, -1 / that = 5.6713, atan = 79.99 -> 79.
        {0, -10.0, 79},
        // Declination exactly 0: atan of an infinity times the kept factor is 89.99999749.
        {0, 0.0, -89},
        {180, 0.0, 89},
        {0, -0.0, 89},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(TerminatorLatitude(r.hourAngle, r.declination), r.expected)
            << r.hourAngle << " " << r.declination;
    }
    EXPECT_EQ(TerminatorLatitude(10, std::numeric_limits<double>::quiet_NaN()), 0);
}

} // namespace
} // namespace zonara

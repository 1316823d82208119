#include "globe/MoonPhase.h"

#include <gtest/gtest.h>

namespace zonara {
namespace {

// January 2006 by hand: y = 2005, m = 14 (January counts as month 13 of 2005),
// c = trunc(365.25 * 2005) = 732326, e = trunc(30.6 * 14) = 428;
// x(1 Jan) = (732326 + 428 + 1 - 694039.09) / 29.53 = 1311.0704, f = 0.0704 -> index 1;
// each further day adds 1 / 29.53 = 0.03386 to f. The true new moons were on
// 31 Dec 2005 and 29 Jan 2006, the full moon on 14 Jan.
TEST(MoonPhaseIndex, StepsThroughAMonthAndAcrossTheYearAndTheReference) {
    const int expected[31] = {
        1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, // 1..11
        4, 4, 4, 4,                      // 12..15: f from 0.4429 (>= 7/16) to 0.5445
        5, 5, 5, 5, 6, 6, 6, 7, 7, 7, 7, // 16..26
        0, 0,                            // 27, 28: f 0.951 and 0.985 wrap to 0
        0, 0,                            // 29, 30: f 0.0186 and 0.0525 (< 1/16)
        1,                               // 31: f 0.0864
    };
    for (int day = 1; day <= 31; ++day)
        EXPECT_EQ(MoonPhaseIndex(2006, 1, day), expected[day - 1]) << "day " << day;

    // The year turn and dates before the reference.
    struct Row {
        int year, month, day, expected;
    };
    const Row rows[] = {
        // 28 Feb 2006: m = 15 of 2005, e = 459, x = 1313.0345 -> 0; 1 Mar 2006: m = 4 of
        // 2006, c = 732691, e = 122, x = 1313.0684 -> 1. The months join without a jump.
        {2006, 2, 28, 0},
        {2006, 3, 1, 1},
        {2005, 12, 31, 0},
        // Before the 1900 reference x is negative and so is f: for 20 Dec 1899,
        // x = f = -0.4433, f * 8 + 0.5 = -3.05, truncated -3, AND 7 gives 5.
        {1899, 12, 20, 5},
        // 31 Dec 1899: f = -0.0708, -0.066 truncates to 0.
        {1899, 12, 31, 0},
        // Full moons: 13 Jul 2022, 25 Dec 2015.
        {2022, 7, 13, 4},
        {2015, 12, 25, 4},
    };
    for (const Row& r : rows)
        EXPECT_EQ(MoonPhaseIndex(r.year, r.month, r.day), r.expected)
            << r.year << "-" << r.month << "-" << r.day;
}

} // namespace
} // namespace zonara

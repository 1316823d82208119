#include "globe/SunAltitude.h"

#include <gtest/gtest.h>

#include "globe/SunTimes.h"

namespace zonara {
namespace {

SystemTime utcAt(int y, int mo, int d, int h, int mi) {
    SystemTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h, t.minute = mi;
    return t;
}

TEST(SunAltitude, UpBetweenTheShownSunriseAndSunset) {
    struct Row {
        int month, day;
        double longitude, latitude;
    };
    const Row rows[] = {
        {6, 21, -0.13, 51.51},   // London
        {1, 15, 151.21, -33.87}, // Sydney: the sunrise falls on the UT evening
        {3, 20, -74.0, 40.7},    // New York
        {9, 1, 18.95, 69.65},    // Tromsø, where the sun sets again after the summer
    };
    for (const Row& r : rows) {
        const SunTime rise = SunriseTime(2006, r.month, r.day, r.longitude, r.latitude);
        const SunTime set = SunsetTime(2006, r.month, r.day, r.longitude, r.latitude);
        ASSERT_EQ(rise.state, SunEventState::Occurs);
        ASSERT_EQ(set.state, SunEventState::Occurs);
        // Five minutes either side of each event, on the same UT date: the cue turns
        // with the times the clocks show.
        const auto at = [&](const SunTime& t, int minutes) {
            const int total = t.hour * 60 + t.minute + minutes;
            return utcAt(2006, r.month, r.day, (total / 60 + 24) % 24, (total % 60 + 60) % 60);
        };
        EXPECT_FALSE(sunIsUp(at(rise, -5), r.longitude, r.latitude)) << r.latitude;
        EXPECT_TRUE(sunIsUp(at(rise, 5), r.longitude, r.latitude)) << r.latitude;
        EXPECT_TRUE(sunIsUp(at(set, -5), r.longitude, r.latitude)) << r.latitude;
        EXPECT_FALSE(sunIsUp(at(set, 5), r.longitude, r.latitude)) << r.latitude;
    }
    // Midsummer at 78 N: up at midnight; midwinter: down at noon.
    EXPECT_TRUE(sunIsUp(utcAt(2006, 6, 21, 23, 0), 15.6, 78.2));
    EXPECT_FALSE(sunIsUp(utcAt(2006, 12, 21, 11, 0), 15.6, 78.2));
}

} // namespace
} // namespace zonara

#include "globe/SunEventText.h"

#include <gtest/gtest.h>

namespace zonara {
namespace {

ZoneTime dateInZone(int year, int month, int day, int zone, int rule) {
    ZoneTime t;
    t.year = year;
    t.month = month;
    t.day = day;
    t.hour = 17; // the time of day of the carrier does not matter
    t.timeZoneIndex = zone;
    t.dstRuleIndex = rule;
    return t;
}

const DstRuleList usRules = {{"FirstSunApr 02:00", "LastSunOct 02:00"}};

TEST(SunEventText, WritesUtTimesAndPolarTexts) {
    EXPECT_EQ(sunEventUtText(SunTime{9, 26, 29}), "09:26:29");
    EXPECT_EQ(sunEventUtText(SunTime{0, 0, 0, SunEventState::PolarDay}), "Up all day");
    EXPECT_EQ(sunEventUtText(SunTime{0, 0, 0, SunEventState::PolarNight}), "Down all day");
    // In local time too, without a local time to give.
    const ZoneTime tromso = dateInZone(2006, 6, 21, 95, 0);
    const SunTime day = SunriseTime(2006, 6, 21, 18.95, 69.65);
    EXPECT_FALSE(sunEventLocalTime(day, tromso, {}));
    EXPECT_EQ(sunEventText(day, tromso, {}), "Up all day");
    EXPECT_EQ(sunEventText(SunsetTime(2006, 12, 21, 18.95, 69.65), tromso, {}, false),
              "Down all day");
}

TEST(SunEventText, ConvertsToTheCitysLocalTime) {
    // Wayne NJ, 25 Jun 1990, Eastern (-300 min) with US daylight saving in force.
    const ZoneTime wayne = dateInZone(1990, 6, 25, 35, 1);
    const SunTime rise = SunriseTime(1990, 6, 25, -74.3, 40.9); // 09:26:29 UT
    const SunTime set = SunsetTime(1990, 6, 25, -74.3, 40.9);   // 00:33:00 UT
    EXPECT_EQ(sunEventText(rise, wayne, usRules), "05:26");
    // The sunset's UT time of day is put on the same date, so it shows as the evening
    // before in local time.
    const auto local = sunEventLocalTime(set, wayne, usRules);
    ASSERT_TRUE(local);
    EXPECT_EQ(local->day, 24);
    EXPECT_EQ(local->weekday, 0); // 24 June 1990 was a Sunday
    EXPECT_EQ(local->dstState, 1);
    EXPECT_EQ(sunEventText(set, wayne, usRules), "20:33");
    EXPECT_EQ(sunEventText(set, wayne, usRules, false), "08:33");
    // In winter the same rule is not in force.
    const ZoneTime winter = dateInZone(1990, 12, 25, 35, 1);
    EXPECT_EQ(sunEventText(SunTime{12, 20, 0}, winter, usRules), "07:20");
    // A rule number past the list counts as standard time.
    EXPECT_EQ(sunEventText(rise, dateInZone(1990, 6, 25, 35, 7), usRules), "04:26");

    // Sydney (+600 min, no rule): 20:59:48 UT is the next morning there.
    const ZoneTime sydney = dateInZone(2006, 6, 21, 255, 0);
    EXPECT_EQ(sunEventLocalTime(SunTime{20, 59, 48}, sydney, {}).value().day, 22);
    EXPECT_EQ(sunEventText(SunTime{20, 59, 48}, sydney, {}), "06:59");
}

} // namespace
} // namespace zonara

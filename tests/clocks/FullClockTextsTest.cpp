#include "clocks/FullClockTexts.h"

#include <gtest/gtest.h>

namespace zonara {
namespace {

const DstRuleList rules = {
    {"LastSunMar 01:00", "LastSunOct 00:59"},
    {"FirstSunOct 02:00", "FirstSunApr 01:59"},
};

SystemTime utcAt(int y, int mo, int d, int h, int mi, int sec) {
    SystemTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h, t.minute = mi, t.second = sec;
    return systemTimeFromUnix(unixFromSystemTime(t)); // fills the weekday
}

ClockSlot london() {
    return ClockSlot{}; // the settings' default slot: London, zone 85, rule 1
}

ClockSlot karachi() {
    ClockSlot slot;
    slot.countryName = u"Pakistan";
    slot.cityName = u"Karachi";
    slot.airportCode = u"KHI";
    slot.dialCode = u"+92 21";
    slot.timeZoneIndex = 185; // West Asia, +05:00
    slot.dstRuleIndex = 0;
    slot.longitude = 67.01f;
    slot.latitude = 24.86f;
    return slot;
}

TEST(FullClockTexts, InternetTimeIgnoresSecondsAndStartsAnHourAheadOfUtc) {
    struct Case {
        SystemTime utc;
        const char* beats;
    };
    const Case cases[] = {
        {utcAt(2026, 3, 1, 23, 0, 0), "@000"},   // midnight in Biel
        {utcAt(2026, 3, 1, 23, 59, 0), "@040"},  // 00:59 of the next day
        {utcAt(2026, 3, 1, 23, 59, 59), "@040"}, // seconds do not count
        {utcAt(2026, 3, 1, 12, 0, 59), "@541"},  // 13:00 is 541.66 beats
        {utcAt(2026, 12, 31, 22, 59, 0), "@999"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(internetTimeText(c.utc), c.beats) << c.beats;
}

// Sun times are the almanac method's: within a minute or two of the published
// tables for these places and days.
TEST(FullClockTexts, EveryFieldInShortAndLongStyleAndBothClockModes) {
    struct Case {
        const char* name;
        ClockSlot city;
        SystemTime utc;
        bool use24Hour;
        FullClockStyles styles;
        std::array<const char*, textFieldCount> texts;
    };
    const FullClockStyles shortStyles;
    const FullClockStyles longStyles{false, false, false};
    const Case cases[] = {
        {"London in summer, 24-hour, short",
         london(),
         utcAt(2026, 7, 15, 13, 5, 30),
         true,
         shortStyles,
         {"United Kingdom", "London", "14:05", "7/15/2026", "LHR", "+44 20", "00:00",
          "Greenwich Mean Time", "+01", "05:00", "21:11", "PM", "@586"}},
        {"London in summer, 12-hour, long",
         london(),
         utcAt(2026, 7, 15, 13, 5, 30),
         false,
         longStyles,
         {"United Kingdom", "London", "02:05", "Wednesday, July 15, 2026", "LHR", "+44 20",
          "GMT offset 00:00", "Greenwich Mean Time", "Daylight Savings +01", "05:00", "09:11", "PM",
          "@586"}},
        {"London in winter: standard time",
         london(),
         utcAt(2026, 1, 10, 9, 30, 0),
         true,
         longStyles,
         {"United Kingdom", "London", "09:30", "Saturday, January 10, 2026", "LHR", "+44 20",
          "GMT offset 00:00", "Greenwich Mean Time", "Daylight Savings 00", "08:03", "16:12", "AM",
          "@437"}},
        {"No rule, the local date a day after UTC",
         karachi(),
         utcAt(2026, 1, 31, 23, 59, 0),
         false,
         longStyles,
         {"Pakistan", "Karachi", "04:59", "Sunday, February 01, 2026", "KHI", "+92 21",
          "GMT offset +05:00", "West Asia Standard Time", "Daylight Savings n\\a", "07:14", "06:16",
          "AM", "@040"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const FullClockTexts got = fullClockTexts(c.city, c.utc, rules, c.use24Hour, c.styles);
        for (std::size_t slot = 0; slot < textFieldCount; ++slot)
            EXPECT_EQ(got.texts[slot], c.texts[slot]) << textFieldNames[slot];
    }
}

TEST(FullClockTexts, PolarDaysAndNightsHaveNoTimes) {
    ClockSlot svalbard;
    svalbard.timeZoneIndex = 110; // W. Europe, +01:00
    svalbard.dstRuleIndex = 1;
    svalbard.latitude = 78.22f;
    svalbard.longitude = 15.65f;
    const auto summer = fullClockTexts(svalbard, utcAt(2026, 6, 21, 12, 0, 0), rules, true, {});
    EXPECT_EQ(summer.texts[SunriseSlot], "Up all day");
    EXPECT_EQ(summer.texts[SunsetSlot], "Up all day");
    const auto winter = fullClockTexts(svalbard, utcAt(2026, 12, 21, 12, 0, 0), rules, true, {});
    EXPECT_EQ(winter.texts[SunriseSlot], "Down all day");
}

TEST(FullClockTexts, MoonPhaseFollowsTheLocalDate) {
    // 2024-04-08 was a new moon (the total solar eclipse), 2024-04-23 a full moon.
    const auto newMoon = fullClockTexts(london(), utcAt(2024, 4, 8, 18, 0, 0), rules, true, {});
    EXPECT_EQ(fullClockMoonPhase(newMoon.local), 0);
    const auto fullMoon = fullClockTexts(london(), utcAt(2024, 4, 23, 23, 30, 0), rules, true, {});
    EXPECT_EQ(fullClockMoonPhase(fullMoon.local), 4);
    // The local date, not the UTC one, picks the day: 20:00 UTC is the next day in Karachi.
    for (int d = 1; d <= 28; ++d) {
        const auto there = fullClockTexts(karachi(), utcAt(2026, 2, d, 20, 0, 0), rules, true, {});
        ZoneTime next;
        next.year = 2026, next.month = 2, next.day = d;
        next.NextDay();
        EXPECT_EQ(fullClockMoonPhase(there.local), fullClockMoonPhase(next)) << d;
    }
}

} // namespace
} // namespace zonara

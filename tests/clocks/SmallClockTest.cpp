#include "clocks/SmallClock.h"

#include <gtest/gtest.h>

#include "support/SlotCity.h"

namespace zonara {
namespace {

const DstRuleList rules = {
    {"LastSunMar 01:00", "LastSunOct 00:59"},   // 1: United Kingdom
    {"FirstSunOct 02:00", "FirstSunApr 01:59"}, // 2: a southern summer
};

SystemTime utcAt(int y, int mo, int d, int h, int mi) {
    SystemTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h, t.minute = mi;
    return systemTimeFromUnix(unixFromSystemTime(t)); // fills the weekday
}

const ClockSlot london = test::slotCity(u"London", 85, 1, -0.06f, 51.51f);
const ClockSlot lisbon = test::slotCity(u"Lisbon", 85, 1, -9.14f, 38.72f);
const ClockSlot delhi = test::slotCity(u"Delhi", 190, 0, 77.21f, 28.61f);
const ClockSlot kathmandu = test::slotCity(u"Kathmandu", 193, 0, 85.32f, 27.72f);
const ClockSlot stJohns = test::slotCity(u"St. John's", 60, 0, -52.71f, 47.56f);
const ClockSlot auckland = test::slotCity(u"Auckland", 290, 2, 174.76f, -36.85f);
const ClockSlot honolulu = test::slotCity(u"Honolulu", 2, 0, -157.86f, 21.31f);

TEST(SmallClock, OffsetAndDayTexts) {
    struct Row {
        int minutes;
        const char* text;
    };
    const Row offsets[] = {
        {0, "0"},       {60, "+1"},   {-480, "\u22128"},  {330, "+5:30"}, {-210, "\u22123:30"},
        {345, "+5:45"}, {5, "+0:05"}, {-5, "\u22120:05"}, {780, "+13"},   {-1380, "\u221223"},
    };
    for (const Row& r : offsets) {
        EXPECT_EQ(differenceText(r.minutes), r.text) << r.minutes;
    }
    struct DayRow {
        int days;
        const char* text;
    };
    const DayRow days[] = {
        {0, ""}, {1, "tomorrow"}, {-1, "yesterday"}, {2, "+2 days"}, {-2, "\u22122 days"},
    };
    for (const DayRow& r : days) {
        EXPECT_EQ(dayShiftText(r.days), r.text) << r.days;
    }
}

TEST(SmallClock, DifferenceToTheReferenceAcrossTheDateLine) {
    struct Row {
        SystemTime utc;
        const ClockSlot* shown;
        const ClockSlot* reference;
        const char* time;
        const char* date;
        const char* line; // difference and day
        bool sunUp;
    };
    const SystemTime january = utcAt(2026, 1, 15, 12, 0);
    const SystemTime july = utcAt(2026, 7, 15, 12, 0);
    const Row rows[] = {
        {january, &delhi, &london, "17:30", "1/15/2026", "+5:30", true},
        {january, &london, &delhi, "12:00", "1/15/2026", "\u22125:30", true},
        // Auckland keeps summer time in January: 01:00 on the 16th.
        {january, &auckland, &london, "01:00", "1/16/2026", "+13 tomorrow", false},
        {january, &london, &auckland, "12:00", "1/15/2026", "\u221213 yesterday", true},
        {january, &honolulu, &auckland, "02:00", "1/15/2026", "\u221223 yesterday", false},
        // In July London is on summer time and Auckland is not.
        {july, &auckland, &london, "00:00", "7/16/2026", "+11 tomorrow", false},
        {july, &london, &honolulu, "13:00", "7/15/2026", "+11", true},
        {utcAt(2026, 1, 15, 20, 0), &honolulu, &london, "10:00", "1/15/2026", "\u221210", true},
        {january, &kathmandu, &stJohns, "17:45", "1/15/2026", "+9:15", false},
        {january, &lisbon, &london, "12:00", "1/15/2026", "0", true},
        // Just before midnight in London it is already tomorrow in Delhi.
        {utcAt(2026, 1, 15, 23, 0), &delhi, &london, "04:30", "1/16/2026", "+5:30 tomorrow", false},
        // The reference's own clock shows no difference.
        {january, &london, nullptr, "12:00", "1/15/2026", "", true},
    };
    for (const Row& r : rows) {
        const SmallClockState state = smallClockState(*r.shown, r.reference, r.utc, rules, true);
        const std::string what = state.texts.name + " at " + std::to_string(r.utc.month) + "/" +
                                 std::to_string(r.utc.day) + " " + std::to_string(r.utc.hour);
        EXPECT_EQ(state.texts.time, r.time) << what;
        EXPECT_EQ(state.texts.date, r.date) << what;
        EXPECT_EQ(state.texts.differenceLine(), r.line) << what;
        EXPECT_EQ(state.texts.sunUp, r.sunUp) << what;
    }
    const SmallClockState twelveHour = smallClockState(delhi, &london, january, rules, false);
    EXPECT_EQ(twelveHour.texts.time, "05:30 PM");
    EXPECT_EQ(twelveHour.local.hour, 17);
}

TEST(SmallClock, Hands) {
    struct Row {
        int hour, minute, second;
        PixelPoint hourTip, minuteTip, secondTip;
    };
    // Radius 40 about (50, 50): hands of 22, 34 and 36 pixels, tips truncated toward the
    // centre (7999 / 8000 of a length falls short by one).
    const Row rows[] = {
        {3, 0, 30, {72, 50}, {50, 17}, {50, 85}},
        // 12:45: the hour hand three marks on (2472 / 8000 and -7608 / 8000 of 22).
        {0, 45, 15, {56, 30}, {17, 50}, {86, 50}},
        {21, 0, 45, {29, 50}, {50, 17}, {15, 50}}, // the evening on the same dial
    };
    for (const Row& r : rows) {
        ZoneTime t;
        t.hour = r.hour, t.minute = r.minute, t.second = r.second;
        const SmallClockHands hands = smallClockHands({50, 50}, 40, t);
        EXPECT_EQ(hands.hour.to, r.hourTip) << r.hour << ":" << r.minute;
        EXPECT_EQ(hands.minute.to, r.minuteTip) << r.hour << ":" << r.minute;
        EXPECT_EQ(hands.second.to, r.secondTip) << r.hour << ":" << r.minute;
        EXPECT_EQ(hands.hour.from, (PixelPoint{50, 50}));
        EXPECT_EQ(hands.hourWidth, 4);
        EXPECT_EQ(hands.minuteWidth, 2);
    }
    EXPECT_EQ(smallClockHands({0, 0}, 12, ZoneTime{}).hourWidth, 2);
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include "core/LocaleFormat.h"
#include "core/ZoneTable.h"
#include "core/ZoneTexts.h"

namespace zonara {

namespace {

ZoneTime make(int year, int month, int day, int weekday, int hour, int minute, int second = 0) {
    ZoneTime t;
    t.year = year, t.month = month, t.day = day, t.weekday = weekday;
    t.hour = hour, t.minute = minute, t.second = second;
    return t;
}

} // namespace

TEST(LocaleFormat, FormatsTimesInTwelveAndTwentyFourHours) {
    struct Row {
        int hour, minute;
        const char* twelve;
        const char* ampm;
        const char* twentyFour;
    };
    const Row table[] = {
        {0, 5, "12:05", "AM", "00:05"},   {1, 0, "01:00", "AM", "01:00"},
        {11, 59, "11:59", "AM", "11:59"}, {12, 30, "12:30", "PM", "12:30"},
        {13, 0, "01:00", "PM", "13:00"},  {23, 59, "11:59", "PM", "23:59"},
    };
    for (const Row& r : table) {
        const ZoneTime t = make(2026, 11, 22, 0, r.hour, r.minute, 42);
        EXPECT_EQ(formatTime12(t), r.twelve);
        EXPECT_EQ(formatAmPm(t), r.ampm);
        EXPECT_EQ(formatClockTime(t, true), r.twentyFour);
        EXPECT_EQ(formatClockTime(t, false), r.twelve);
    }
    const ZoneTime t = make(2026, 11, 22, 0, 9, 7, 3);
    EXPECT_EQ(formatTimeWith(t, "h':'m':'s t"), "9:7:3 A");
    EXPECT_EQ(formatTimeWith(t, "'it''s' HH'h'"), "it's 09h");
}

TEST(LocaleFormat, FormatsDatesShortAndLong) {
    const ZoneTime t = make(2026, 11, 2, 1, 0, 0);
    EXPECT_EQ(formatDate(t, DateShort), "11/2/2026");
    EXPECT_EQ(formatDate(t, DateLong), "Monday, November 02, 2026");
    EXPECT_EQ(expandDatePicture(t, "ddd d MMM yy"), "Mon 2 Nov 26");
    // A weekday out of range is formatted once more with weekday 0.
    ZoneTime odd = t;
    odd.weekday = 9;
    EXPECT_EQ(formatDate(odd, DateLong), "Sunday, November 02, 2026");
    ZoneTime impossible = t;
    impossible.month = 13;
    EXPECT_EQ(formatDate(impossible, DateShort), "");
}

TEST(ZoneTexts, NameTheStateAndTheZone) {
    EXPECT_EQ(dstStateText(-1), "n\\a");
    EXPECT_EQ(dstStateText(0), "00");
    EXPECT_EQ(dstStateText(1), "+01");
    EXPECT_EQ(zoneDescription(zoneRow(85)), "Greenwich Mean Time");
    EXPECT_EQ(zoneDescription(zoneRow(4)), "Pacific Standard Time");
}

} // namespace zonara

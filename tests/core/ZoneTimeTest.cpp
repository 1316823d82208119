#include <gtest/gtest.h>

#include "core/SystemTime.h"
#include "core/ZoneTable.h"
#include "core/ZoneTime.h"

namespace zonara {

namespace {

const DstRuleList rules = {
    {"LastSunMar 01:00", "LastSunOct 00:59"},   // 1: the United Kingdom
    {"FirstSunOct 02:00", "FirstSunApr 01:59"}, // 2: southern, across the new year
    {"15Mar 00:00", "15Mar 23:59"},             // 3: start and end in one month
};

ZoneTime at(const char* iso, int key, int rule) {
    ZoneTime t;
    t.setUtc(*parseIsoUtc(iso));
    t.timeZoneIndex = key;
    t.dstRuleIndex = rule;
    return t;
}

} // namespace

TEST(ZoneTable, HasItsRowsInKeyOrderAndFindsNeighbours) {
    ASSERT_EQ(zoneTable.size(), 74u);
    for (std::size_t i = 1; i < zoneTable.size(); ++i) {
        EXPECT_LT(zoneTable[i - 1].key, zoneTable[i].key);
    }
    struct Row {
        int key;
        int rowKey;
    };
    for (const Row r : {Row{85, 85}, Row{86, 85}, Row{89, 85}, Row{301, 0}, Row{1000, 0}, Row{0, 0},
                        Row{-5, 0}, Row{300, 300}, Row{299, 290}, Row{14, 10}}) {
        EXPECT_EQ(zoneRow(r.key).key, r.rowKey) << r.key;
    }
    EXPECT_EQ(zoneRow(15).name, "");
    EXPECT_EQ(zoneRow(193).offsetMinutes, 345);
    EXPECT_EQ(zoneRow(60).offsetText, "-03:30");
}

TEST(ZoneTime, ResolvesRuleTexts) {
    struct Row {
        const char* text;
        int year;
        int month, day, hour, minute, weekday;
    };
    const Row table[] = {
        {"LastSunOct 01:00", 2006, 10, 29, 1, 0, 0},
        {"LastSunMar 01:00", 2026, 3, 29, 1, 0, 0},
        {"FirstSunApr 02:00", 2026, 4, 5, 2, 0, 0},
        {"FirstSunAfter08Mar 02:00", 2026, 3, 8, 2, 0, 0}, // the 8th itself is a Sunday
        {"FirstSunAfter08Mar 02:00", 2027, 3, 14, 2, 0, 0},
        {"LastSatAfter28Mar 23:30", 2026, 3, 28, 23, 30, 6}, // on or before the 28th
        {"LastFriAfter31Mar 02:00", 2026, 3, 27, 2, 0, 5},
        {"15Oct 03:00", 2026, 10, 15, 3, 0, 4},
        {"01Jan 00:00", 2027, 1, 1, 0, 0, 5},
        {"LastSunOct 02", 2026, 10, 25, 2, 0, 0},          // no minutes: 0
        {"LastXyzOct 02:00", 2026, 10, 25, 2, 0, 0},       // an unknown weekday is Sunday
        {"FirstSatDec 1:5", 2026, 12, 5, 1, 0, 6},         // a non-digit ends a number
        {"FirstMonAfter29Dec 00:00", 2026, 1, 4, 0, 0, 1}, // steps into the next year's January
    };
    for (const Row& r : table) {
        ZoneTime t;
        t.ResolveRule(r.text, r.year);
        EXPECT_EQ(t.month, r.month) << r.text;
        EXPECT_EQ(t.day, r.day) << r.text;
        EXPECT_EQ(t.hour, r.hour) << r.text;
        EXPECT_EQ(t.minute, r.minute) << r.text;
        EXPECT_EQ(t.weekday, r.weekday) << r.text;
    }
    ZoneTime odd;
    odd.ResolveRule("LastSunXyz 01:00", 2026); // an unknown month is 0 and must not loop
    EXPECT_EQ(odd.weekday, 0);
    ZoneTime tiny;
    tiny.ResolveRule("F", 2026); // short texts read nothing past their end
    EXPECT_EQ(tiny.month, 0);
}

TEST(ZoneTime, AppliesZonesAndDaylightSaving) {
    struct Row {
        const char* utc;
        int key, rule;
        const char* local; // YYYY-MM-DDTHH:MM:SS
        int weekday, dstState;
    };
    const Row table[] = {
        {"2026-07-01T12:00:00Z", 85, 1, "2026-07-01T13:00:00", 3, 1},
        {"2026-01-15T12:00:00Z", 85, 1, "2026-01-15T12:00:00", 4, 0},
        // Both bounds are inclusive, in local standard time.
        {"2026-03-29T00:59:00Z", 85, 1, "2026-03-29T00:59:00", 0, 0},
        {"2026-03-29T01:00:00Z", 85, 1, "2026-03-29T02:00:00", 0, 1},
        {"2026-10-25T00:59:00Z", 85, 1, "2026-10-25T01:59:00", 0, 1},
        {"2026-10-25T01:00:00Z", 85, 1, "2026-10-25T01:00:00", 0, 0},
        // West of Greenwich across the new year, the weekday one less.
        {"2026-01-01T02:00:00Z", 35, 0, "2025-12-31T21:00:00", 3, -1},
        // A southern rule spans the turn of the year.
        {"2026-01-01T00:00:00Z", 255, 2, "2026-01-01T11:00:00", 4, 1},
        {"2026-06-15T00:00:00Z", 255, 2, "2026-06-15T10:00:00", 1, 0},
        {"2026-04-04T15:59:00Z", 255, 2, "2026-04-05T02:59:00", 0, 1},
        {"2026-04-04T16:00:00Z", 255, 2, "2026-04-05T02:00:00", 0, 0},
        // Start and end in one month: the plain test applies.
        {"2026-03-15T12:00:00Z", 85, 3, "2026-03-15T13:00:00", 0, 1},
        {"2026-03-16T00:00:00Z", 85, 3, "2026-03-16T00:00:00", 1, 0},
        // No rule, and a rule number past the list.
        {"2026-07-01T12:00:00Z", 85, 0, "2026-07-01T12:00:00", 3, -1},
        {"2026-07-01T12:00:00Z", 85, 9, "2026-07-01T12:00:00", 3, 0},
        {"2026-07-01T12:00:00Z", 85, -56, "2026-07-01T12:00:00", 3, 0},
        // Unknown keys: 86 takes 85's row, 301 takes the Dateline's.
        {"2026-07-01T12:00:00Z", 86, 0, "2026-07-01T12:00:00", 3, -1},
        {"2026-07-01T12:00:00Z", 301, 0, "2026-07-01T00:00:00", 3, -1},
        // Half and three-quarter hours, across a leap day.
        {"2028-02-28T20:00:00Z", 193, 0, "2028-02-29T01:45:00", 2, -1},
        {"2028-03-01T01:00:00Z", 60, 0, "2028-02-29T21:30:00", 2, -1},
        {"2026-12-31T23:30:00Z", 300, 0, "2027-01-01T12:30:00", 5, -1},
    };
    for (const Row& r : table) {
        ZoneTime t = at(r.utc, r.key, r.rule);
        t.ApplyZone(rules);
        const SystemTime expected = *parseIsoUtc(r.local);
        EXPECT_EQ(t.year, expected.year) << r.utc << " key " << r.key;
        EXPECT_EQ(t.month, expected.month) << r.utc << " key " << r.key;
        EXPECT_EQ(t.day, expected.day) << r.utc << " key " << r.key;
        EXPECT_EQ(t.hour, expected.hour) << r.utc << " key " << r.key;
        EXPECT_EQ(t.minute, expected.minute) << r.utc << " key " << r.key;
        EXPECT_EQ(t.weekday, r.weekday) << r.utc << " key " << r.key;
        EXPECT_EQ(t.dstState, r.dstState) << r.utc << " key " << r.key;
    }
}

TEST(ZoneTime, MinuteArithmeticMatchesPlainSeconds) {
    // Every offset of the table, forwards and backwards, over two years of
    // instants that fall near midnight, month ends and leap days.
    for (std::int64_t s = 1704067200; s < 1767225600; s += 86400 * 3 + 1234) {
        for (const ZoneRow& row : zoneTable) {
            ZoneTime t;
            t.setUtc(systemTimeFromUnix(s));
            const int n = row.offsetMinutes;
            if (n >= 0) {
                t.AddMinutes(n);
            } else {
                t.SubtractMinutes(-n);
            }
            const SystemTime expected = systemTimeFromUnix(s + n * 60);
            SystemTime got = t.ToSystemTime();
            ASSERT_EQ(got, expected) << s << " " << n;
        }
    }
}

} // namespace zonara

#include <gtest/gtest.h>

#include <ctime>

#include "core/Calendar.h"
#include "core/SystemTime.h"

namespace zonara {

TEST(Calendar, LeapYearsAndMonthLengths) {
    struct Row {
        int year;
        bool leap;
    };
    for (const Row r : {Row{2000, true}, Row{1900, false}, Row{2024, true}, Row{2026, false},
                        Row{2100, false}, Row{2400, true}}) {
        EXPECT_EQ(isLeapYear(r.year), r.leap) << r.year;
        EXPECT_EQ(daysInMonth(2, r.year), r.leap ? 29 : 28) << r.year;
    }
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int m = 1; m <= 12; ++m) {
        EXPECT_EQ(daysInMonth(m, 2026), lengths[m - 1]) << m;
    }
    EXPECT_EQ(daysInMonth(0, 2026), 0);
    EXPECT_EQ(daysInMonth(13, 2026), 0);
}

TEST(Calendar, DayNumbersAndWeekdaysAgreeWithTheCLibrary) {
    EXPECT_EQ(dayNumber(2000, 1, 1), 2451545);
    EXPECT_EQ(weekdayOf(2000, 1, 1), 6);
    // Every day from 1970 to 2100 against timegm/gmtime.
    std::int32_t previous = dayNumber(1969, 12, 31);
    for (int year = 1970; year <= 2100; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= daysInMonth(month, year); ++day) {
                std::tm tm{};
                tm.tm_year = year - 1900;
                tm.tm_mon = month - 1;
                tm.tm_mday = day;
                const std::time_t t = timegm(&tm);
                std::tm back{};
                gmtime_r(&t, &back);
                ASSERT_EQ(weekdayOf(year, month, day), back.tm_wday)
                    << year << "-" << month << "-" << day;
                ASSERT_EQ(dayNumber(year, month, day), previous + 1);
                previous = dayNumber(year, month, day);
            }
        }
    }
}

TEST(SystemTime, ConvertsBothWaysLikeTheCLibrary) {
    for (std::int64_t s = -86400LL * 366 * 3; s < 86400LL * 366 * 140; s += 86400 * 17 + 3607) {
        const SystemTime t = systemTimeFromUnix(s);
        std::tm tm{};
        const std::time_t tt = std::time_t(s);
        gmtime_r(&tt, &tm);
        ASSERT_EQ(t.year, tm.tm_year + 1900) << s;
        ASSERT_EQ(t.month, tm.tm_mon + 1) << s;
        ASSERT_EQ(t.day, tm.tm_mday) << s;
        ASSERT_EQ(t.dayOfWeek, tm.tm_wday) << s;
        ASSERT_EQ(t.hour * 3600 + t.minute * 60 + t.second,
                  tm.tm_hour * 3600 + tm.tm_min * 60 + tm.tm_sec)
            << s;
        ASSERT_EQ(unixFromSystemTime(t), s);
    }
}

TEST(SystemTime, ParsesIsoTimesAndRefusesAnythingElse) {
    const auto t = parseIsoUtc("2024-02-29T23:59:58Z");
    ASSERT_TRUE(t);
    EXPECT_EQ(*t, (SystemTime{2024, 2, 4, 29, 23, 59, 58, 0}));
    EXPECT_TRUE(parseIsoUtc("2026-11-22T02:13:00"));
    for (const char* bad : {"", "2026-11-22", "2026-02-29T00:00:00Z", "2026-11-22T24:00:00Z",
                            "2026-11-22T12:60:00Z", "2026-13-01T00:00:00Z", "2026-1-01T00:00:00Z",
                            "2026-11-22T12:00:00ZZ", "+026-11-22T12:00:00Z", "abcd"}) {
        EXPECT_FALSE(parseIsoUtc(bad)) << bad;
    }
    EXPECT_TRUE(parseIsoDate("2026-03-29"));
    EXPECT_FALSE(parseIsoDate("2026-04-31"));
}

} // namespace zonara

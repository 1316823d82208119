#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/DstPeriod.h"
#include "core/WorldFiles.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/TzClock.h"

namespace zonara {
namespace {

const char* weekdayName(std::int32_t weekday) {
    static constexpr const char* names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    return weekday >= 0 && weekday <= 6 ? names[weekday] : "???";
}

std::string show(const ZoneTime& t) {
    char text[40];
    std::snprintf(text, sizeof text, "%s %04d-%02d-%02d %02d:%02d", weekdayName(t.weekday),
                  int(t.year), int(t.month), int(t.day), int(t.hour), int(t.minute));
    return text;
}

std::string show(const SystemTime& t) {
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02dZ", int(t.year), int(t.month),
                  int(t.day), int(t.hour), int(t.minute), int(t.second));
    return text;
}

std::string show(std::time_t t) {
    return show(systemTimeFromUnix(t));
}

// Hand-worked periods: the calendar of the rule forms, the turn of the year,
// and the wall-clock times either side of midnight.
TEST(DstPeriod, ResolvesBothEndsAndTheWallClockChanges) {
    struct Row {
        const char* startText;
        const char* endText;
        std::int32_t year;
        const char* start; // also when the clocks go forward
        const char* end;
        const char* back;
    };
    // clang-format off
    const Row rows[] = {
        // Europe: the last minute 00:59 standard is 01:59 daylight.
        {"LastSunMar 01:00", "LastSunOct 00:59", 2026, "Sun 2026-03-29 01:00", "Sun 2026-10-25 00:59", "Sun 2026-10-25 02:00"},
        // Southern: the end falls in the following year.
        {"FirstSunOct 02:00", "FirstSunApr 01:59", 2026, "Sun 2026-10-04 02:00", "Sun 2027-04-04 01:59", "Sun 2027-04-04 03:00"},
        // Ending late on a Saturday puts the clocks back at midnight on Sunday.
        {"FirstSunAfter02Sep 00:00", "FirstSatApr 22:59", 2026, "Sun 2026-09-06 00:00", "Sat 2027-04-03 22:59", "Sun 2027-04-04 00:00"},
        // The last Saturday on or before 6 November may be in October.
        {"FirstSunAfter08Mar 00:00", "LastSatAfter06Nov 23:59", 2026, "Sun 2026-03-08 00:00", "Sat 2026-10-31 23:59", "Sun 2026-11-01 01:00"},
        // Start and end in one month: only the months say "turn of the year".
        {"05Jun 02:00", "25Jun 01:59", 2027, "Sat 2027-06-05 02:00", "Fri 2027-06-25 01:59", "Fri 2027-06-25 03:00"},
        {"25Jun 02:00", "05Jun 01:59", 2027, "Fri 2027-06-25 02:00", "Sat 2027-06-05 01:59", "Sat 2027-06-05 03:00"},
        {"LastTueFeb 02:00", "LastSunMar 01:59", 2028, "Tue 2028-02-29 02:00", "Sun 2028-03-26 01:59", "Sun 2028-03-26 03:00"},
    };
    // clang-format on
    for (const Row& row : rows) {
        const DstPeriod period = dstPeriod(DstRule{row.startText, row.endText}, row.year);
        SCOPED_TRACE(std::string(row.startText) + " / " + row.endText);
        EXPECT_EQ(show(period.start), row.start);
        EXPECT_EQ(show(period.end), row.end);
        EXPECT_EQ(show(clocksForwardAt(period)), row.start);
        EXPECT_EQ(show(clocksBackAt(period)), row.back);
    }
}

TEST(DstPeriod, KnowsOnlyTheRulesTheListHas) {
    const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"}};
    EXPECT_TRUE(dstPeriod(rules, 1, 2026));
    EXPECT_FALSE(dstPeriod(rules, 0, 2026));
    EXPECT_FALSE(dstPeriod(rules, 2, 2026));
    EXPECT_FALSE(dstPeriod(rules, -1, 2026));
}

City findCity(const CountryList& countries, const char* country, const char* name) {
    const Country* found = findCountryByName(countries, country);
    if (found == nullptr) {
        return {};
    }
    const City* city = findCityByName(*found, name);
    return city != nullptr ? *city : City{};
}

// Every rule the program ships, through a city that uses it, against the
// machine's tzdata for that city (zones from -06:00 to +12:00): the clocks go
// forward at the first change of +1 h in the year and back at the first
// change of -1 h after it.
TEST(DstPeriod, EveryShippedRuleChangesTheClocksWhenTzdataDoes) {
    test::TempDir dir;
    const Paths paths = test::copyShippedWorld(dir.path());
    CountryList countries;
    ASSERT_TRUE(loadCountries(paths, countries, true));
    for (Country& country : countries) {
        loadCities(paths, country, false);
    }
    DstRuleList rules;
    ASSERT_TRUE(loadDstRules(paths, rules));

    struct Row {
        const char* country;
        const char* city;
        const char* zone;
        std::array<bool, 4> agrees = {true, true, true, true}; // 2026 start, end, 2027 ...
    };
    const Row rows[] = {
        {"United Kingdom", "London", "Europe/London"},
        {"Finland", "Helsinki", "Europe/Helsinki"},
        {"France", "Paris", "Europe/Paris"},
        {"New Zealand", "Auckland", "Pacific/Auckland"},
        {"Australia", "Sydney", "Australia/Sydney"},
        {"United States", "Chicago", "America/Chicago"},
        {"Chile", "Santiago", "America/Santiago"},
        {"Chile", "Hanga Roa", "Pacific/Easter"},
        {"Cuba", "Havana", "America/Havana"},
        {"Egypt", "Cairo", "Africa/Cairo"},
        {"Greenland", "Nuuk", "America/Nuuk"},
        {"Israel", "Jerusalem", "Asia/Jerusalem"},
        {"Lebanon", "Beirut", "Asia/Beirut"},
        // Morocco's clocks change around Ramadan, which follows the moon: no
        // rule form names those days, so the shipped rule is a known deviation.
        {"Morocco", "Casablanca", "Africa/Casablanca", {true, false, false, false}},
        {"Palestine", "Hebron", "Asia/Hebron"},
        {"Portugal", "Ponta Delgada", "Atlantic/Azores"},
    };
    std::set<std::int32_t> covered;
    for (const Row& row : rows) {
        const City city = findCity(countries, row.country, row.city);
        ASSERT_NE(city.dstRuleIndex, 0) << row.city << " is not a shipped city with a rule";
        covered.insert(city.dstRuleIndex);
        const test::TzClock tz(row.zone);
        for (const std::int32_t year : {2026, 2027}) {
            SCOPED_TRACE(std::string(row.city) + " " + std::to_string(year));
            const auto period = dstPeriod(rules, city.dstRuleIndex, year);
            ASSERT_TRUE(period);
            const auto yearStart = std::time_t(unixFromSystemTime(SystemTime{year, 1}));
            const std::time_t limit = yearStart + 2 * 366 * 86400;
            const auto forward = tz.nextChange(yearStart, limit, 3600);
            ASSERT_TRUE(forward);
            const auto back = tz.nextChange(*forward, limit, -3600);
            ASSERT_TRUE(back);
            const std::string start = show(dstStartUtc(*period, city.timeZoneIndex));
            const std::string end = show(dstEndUtc(*period, city.timeZoneIndex));
            const std::size_t i = year == 2026 ? 0 : 2;
            EXPECT_EQ(start == show(*forward), row.agrees[i]) << start << " vs " << show(*forward);
            EXPECT_EQ(end == show(*back), row.agrees[i + 1]) << end << " vs " << show(*back);
        }
    }
    std::set<std::int32_t> shipped;
    for (std::size_t i = 1; i <= rules.size(); ++i) {
        shipped.insert(std::int32_t(i));
    }
    EXPECT_EQ(covered, shipped) << "one city for every rule of the file";
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

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
        const char* start;
        const char* end;
        const char* back;
    };
    const Row rows[] = {
        // Europe: the end's last minute 00:59 standard is 01:59 daylight.
        {"LastSunMar 01:00", "LastSunOct 00:59", 2026, "Sun 2026-03-29 01:00",
         "Sun 2026-10-25 00:59", "Sun 2026-10-25 02:00"},
        // A southern rule ends in the following year.
        {"FirstSunOct 02:00", "FirstSunApr 01:59", 2026, "Sun 2026-10-04 02:00",
         "Sun 2027-04-04 01:59", "Sun 2027-04-04 03:00"},
        // Ending late on a Saturday puts the clocks back at midnight on Sunday.
        {"FirstSunAfter02Sep 00:00", "FirstSatApr 22:59", 2026, "Sun 2026-09-06 00:00",
         "Sat 2027-04-03 22:59", "Sun 2027-04-04 00:00"},
        // "Last Saturday on or before 6 November" may fall in October.
        {"FirstSunAfter08Mar 00:00", "LastSatAfter06Nov 23:59", 2026, "Sun 2026-03-08 00:00",
         "Sat 2026-10-31 23:59", "Sun 2026-11-01 01:00"},
        // Start and end in the same month: no turn of the year, as in force.
        {"05Jun 02:00", "25Jun 01:59", 2027, "Sat 2027-06-05 02:00", "Fri 2027-06-25 01:59",
         "Fri 2027-06-25 03:00"},
        {"25Jun 02:00", "05Jun 01:59", 2027, "Fri 2027-06-25 02:00", "Sat 2027-06-05 01:59",
         "Sat 2027-06-05 03:00"},
        // The end's last minute 23:59 daylight rolls over into the next day.
        {"LastSunMar 00:00", "FirstSatAfter24Oct 23:59", 2028, "Sun 2028-03-26 00:00",
         "Sat 2028-10-28 23:59", "Sun 2028-10-29 01:00"},
        // Leap day: the last Tuesday of February 2028 is the 29th.
        {"LastTueFeb 02:00", "LastSunMar 01:59", 2028, "Tue 2028-02-29 02:00",
         "Sun 2028-03-26 01:59", "Sun 2028-03-26 03:00"},
    };
    for (const Row& row : rows) {
        const DstPeriod period = dstPeriod(DstRule{row.startText, row.endText}, row.year);
        SCOPED_TRACE(std::string(row.startText) + " / " + row.endText);
        EXPECT_EQ(show(period.start), row.start);
        EXPECT_EQ(show(period.end), row.end);
        EXPECT_EQ(show(clocksForwardAt(period)), row.start);
        EXPECT_EQ(show(clocksBackAt(period)), row.back);
    }
}

TEST(DstPeriod, KnowsOnlyTheRulesTheListHasAndTurnsZonesIntoUtc) {
    const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"},
                               {"FirstSunOct 02:00", "FirstSunApr 01:59"}};
    EXPECT_FALSE(dstPeriod(rules, 0, 2026));
    EXPECT_FALSE(dstPeriod(rules, 3, 2026));
    EXPECT_FALSE(dstPeriod(rules, -1, 2026));
    ASSERT_TRUE(dstPeriod(rules, 2, 2026));
    EXPECT_EQ(show(dstPeriod(rules, 2, 2026)->end), "Sun 2027-04-04 01:59");

    struct Row {
        std::int32_t rule;
        std::int32_t zone;
        const char* startUtc;
        const char* endUtc;
    };
    const Row rows[] = {
        {1, 85, "2026-03-29T01:00:00Z", "2026-10-25T01:00:00Z"},  // no offset
        {1, 35, "2026-03-29T06:00:00Z", "2026-10-25T06:00:00Z"},  // -05:00
        {2, 255, "2026-10-03T16:00:00Z", "2027-04-03T16:00:00Z"}, // +10:00, the day before
        {2, 60, "2026-10-04T05:30:00Z", "2027-04-04T05:30:00Z"},  // -03:30
    };
    for (const Row& row : rows) {
        const DstPeriod period = *dstPeriod(rules, row.rule, 2026);
        SCOPED_TRACE(row.zone);
        EXPECT_EQ(show(dstStartUtc(period, row.zone)), row.startUtc);
        EXPECT_EQ(show(dstEndUtc(period, row.zone)), row.endUtc);
    }
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
// machine's tzdata for that city: the clocks go forward at the first change
// of +1 h in the year and back at the first change of -1 h after it.
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
        std::int32_t year;
        bool startAgrees = true;
        bool endAgrees = true;
    };
    const Row rows[] = {
        {"United Kingdom", "London", "Europe/London", 2026},
        {"United Kingdom", "London", "Europe/London", 2027},
        {"Finland", "Helsinki", "Europe/Helsinki", 2026},
        {"Finland", "Helsinki", "Europe/Helsinki", 2027},
        {"France", "Paris", "Europe/Paris", 2026},
        {"France", "Paris", "Europe/Paris", 2027},
        {"New Zealand", "Auckland", "Pacific/Auckland", 2026},
        {"New Zealand", "Auckland", "Pacific/Auckland", 2027},
        {"Australia", "Sydney", "Australia/Sydney", 2026},
        {"Australia", "Sydney", "Australia/Sydney", 2027},
        {"United States", "Chicago", "America/Chicago", 2026},
        {"United States", "Chicago", "America/Chicago", 2027},
        {"Chile", "Santiago", "America/Santiago", 2026},
        {"Chile", "Santiago", "America/Santiago", 2027},
        {"Chile", "Hanga Roa", "Pacific/Easter", 2026},
        {"Chile", "Hanga Roa", "Pacific/Easter", 2027},
        {"Cuba", "Havana", "America/Havana", 2026},
        {"Cuba", "Havana", "America/Havana", 2027},
        {"Egypt", "Cairo", "Africa/Cairo", 2026},
        {"Egypt", "Cairo", "Africa/Cairo", 2027},
        {"Greenland", "Nuuk", "America/Nuuk", 2026},
        {"Greenland", "Nuuk", "America/Nuuk", 2027},
        {"Israel", "Jerusalem", "Asia/Jerusalem", 2026},
        {"Israel", "Jerusalem", "Asia/Jerusalem", 2027},
        {"Lebanon", "Beirut", "Asia/Beirut", 2026},
        {"Lebanon", "Beirut", "Asia/Beirut", 2027},
        // Morocco's clocks change around Ramadan, which follows the moon: no
        // rule form names those days, so the shipped rule is a known deviation.
        {"Morocco", "Casablanca", "Africa/Casablanca", 2026, true, false},
        {"Morocco", "Casablanca", "Africa/Casablanca", 2027, false, false},
        {"Palestine", "Hebron", "Asia/Hebron", 2026},
        {"Palestine", "Hebron", "Asia/Hebron", 2027},
        {"Portugal", "Ponta Delgada", "Atlantic/Azores", 2026},
        {"Portugal", "Ponta Delgada", "Atlantic/Azores", 2027},
    };
    std::set<std::int32_t> covered;
    for (const Row& row : rows) {
        const City city = findCity(countries, row.country, row.city);
        SCOPED_TRACE(std::string(row.city) + " " + std::to_string(row.year));
        ASSERT_NE(city.dstRuleIndex, 0) << "not a shipped city with a rule";
        covered.insert(city.dstRuleIndex);
        const auto period = dstPeriod(rules, city.dstRuleIndex, row.year);
        ASSERT_TRUE(period);

        const test::TzClock tz(row.zone);
        const std::time_t yearStart = std::time_t(unixFromSystemTime(SystemTime{row.year, 1}));
        const std::time_t limit = yearStart + 2 * 366 * 86400;
        const auto forward = tz.nextChange(yearStart, limit, 3600);
        ASSERT_TRUE(forward);
        const auto back = tz.nextChange(*forward, limit, -3600);
        ASSERT_TRUE(back);
        const auto ours = [&](const SystemTime& t) {
            return show(std::time_t(unixFromSystemTime(t)));
        };
        const std::string start = ours(dstStartUtc(*period, city.timeZoneIndex));
        const std::string end = ours(dstEndUtc(*period, city.timeZoneIndex));
        EXPECT_EQ(start == show(*forward), row.startAgrees) << start << " vs " << show(*forward);
        EXPECT_EQ(end == show(*back), row.endAgrees) << end << " vs " << show(*back);
    }
    std::set<std::int32_t> shipped;
    for (std::size_t i = 1; i <= rules.size(); ++i) {
        shipped.insert(std::int32_t(i));
    }
    EXPECT_EQ(covered, shipped) << "one city for every rule of the file";
}

} // namespace
} // namespace zonara

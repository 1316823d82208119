#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "cities/CityDetailsRows.h"
#include "core/Text.h"

namespace zonara {
namespace {

const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"},
                           {"FirstSunOct 02:00", "FirstSunApr 01:59"},
                           {"LastSunMar 02:00", "LastSunOct 01:59"}};

ClockSlot slotFor(const char* country, const char* city, std::int32_t zone, std::int32_t rule,
                  float longitude, float latitude) {
    ClockSlot slot;
    slot.countryName = toUtf16(country);
    slot.cityName = toUtf16(city);
    slot.airportCode = u"XXX";
    slot.dialCode = u"+99 9";
    slot.stationCode = u"XXXX";
    slot.timeZoneIndex = zone;
    slot.dstRuleIndex = rule;
    slot.longitude = longitude;
    slot.latitude = latitude;
    return slot;
}

// "HH:mm" as minutes of the day; -1 for anything else.
int minutesOf(const std::string& text) {
    if (text.size() != 5 || text[2] != ':') {
        return -1;
    }
    return std::atoi(text.substr(0, 2).c_str()) * 60 + std::atoi(text.substr(3).c_str());
}

std::vector<std::string> split(const std::string& text) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t bar; (bar = text.find('|', from)) != std::string::npos; from = bar + 1) {
        parts.push_back(text.substr(from, bar - from));
    }
    parts.push_back(text.substr(from));
    return parts;
}

TEST(CityDetails, LabelsTheRowsInOrderWithTheDatesOnlyForACityWithARule) {
    const auto labels = [](const ClockSlot& city) {
        std::string out;
        for (const DetailsRow& row : cityDetails(city, {2026, 7}, rules).rows) {
            out += detailsLabel(row.id);
            out += '|';
        }
        return out;
    };
    const ClockSlot london;
    EXPECT_EQ(labels(london), "Airport Code|ICAO|Dial Prefix|GMT offset|DST|DST Starts|DST "
                              "Ends|Longitude|Latitude|Sunrise|Sunset|");
    EXPECT_EQ(labels(slotFor("Japan", "Tokyo", 235, 0, 139.69f, 35.69f)),
              "Airport Code|ICAO|Dial Prefix|GMT offset|DST|Longitude|Latitude|Sunrise|Sunset|");
    const CityDetails details = cityDetails(london, {2026, 7}, rules);
    EXPECT_EQ(details.cityName, "London");
    EXPECT_EQ(details.countryName, "United Kingdom");
}

// The values, with sunrise and sunset compared with the almanac's local times
// to within five minutes (the method is an approximation), or exactly when
// they are the texts of a polar day or night.
TEST(CityDetails, ShowsTheValuesForEveryKindOfCity) {
    struct Row {
        const char* what;
        ClockSlot city;
        const char* utc;
        std::string values; // from "GMT offset" on, split by '|'
    };
    const ClockSlot london;
    const ClockSlot sydney = slotFor("Australia", "Sydney", 255, 2, 151.21f, -33.87f);
    const ClockSlot svalbard = slotFor("Svalbard", "Longyearbyen", 95, 3, 15.63f, 78.22f);
    // clang-format off
    const Row rows[] = {
        {"northern summer", london, "2026-07-01T12:00:00Z", "00:00|+01|3/29/2026 01:00|10/25/2026 02:00|-0.06|51.51|04:47|21:21"},
        {"northern winter", london, "2026-12-15T12:00:00Z", "00:00|00|3/29/2026 01:00|10/25/2026 02:00|-0.06|51.51|08:00|15:52"},
        {"southern: the period starting this year ends in the next", sydney, "2026-01-15T01:00:00Z", "+10:00|+01|10/4/2026 02:00|4/4/2027 03:00|151.21|-33.87|06:01|20:09"},
        {"the year is the city's own, already 2027 there", sydney, "2026-12-31T14:00:00Z", "+10:00|+01|10/3/2027 02:00|4/2/2028 03:00|151.21|-33.87|05:48|20:09"},
        {"no daylight saving", slotFor("Japan", "Tokyo", 235, 0, 139.69f, 35.69f), "2026-03-20T03:00:00Z", "+09:00|n\\a|139.69|35.69|05:45|17:53"},
        {"a rule number beyond the list", slotFor("", "", 95, 9, 0.f, 0.f), "2026-07-01T12:00:00Z", "+01:00|00|||0.00|0.00|07:00|19:07"},
        {"polar day", svalbard, "2026-06-21T12:00:00Z", "+01:00|+01|3/29/2026 02:00|10/25/2026 03:00|15.63|78.22|Up all day|Up all day"},
        {"polar night", svalbard, "2026-12-21T12:00:00Z", "+01:00|00|3/29/2026 02:00|10/25/2026 03:00|15.63|78.22|Down all day|Down all day"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const CityDetails details = cityDetails(row.city, *parseIsoUtc(row.utc), rules);
        const std::vector<std::string> expected = split(row.values);
        ASSERT_EQ(details.rows.size(), expected.size() + 3);
        EXPECT_EQ(details.rows[0].value, toUtf8(row.city.airportCode));
        EXPECT_EQ(details.rows[1].value, toUtf8(row.city.stationCode));
        EXPECT_EQ(details.rows[2].value, toUtf8(row.city.dialCode));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const DetailsRow& ours = details.rows[i + 3];
            const bool sun = ours.id == DetailsRowId::Sunrise || ours.id == DetailsRowId::Sunset;
            if (sun && minutesOf(expected[i]) >= 0) {
                EXPECT_NEAR(minutesOf(ours.value), minutesOf(expected[i]), 5) << ours.value;
            } else {
                EXPECT_EQ(ours.value, expected[i]) << detailsLabel(ours.id);
            }
        }
    }
}

} // namespace
} // namespace zonara

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

// Label and value of every row; sunrise and sunset are compared with the
// almanac's local times to within five minutes (the method is an
// approximation), or exactly when they are the texts of a polar day or night.
TEST(CityDetails, ListsTheRowsInOrderForEveryKindOfCity) {
    using Rows = std::vector<std::pair<std::string, std::string>>;
    struct Row {
        const char* what;
        ClockSlot city;
        const char* utc;
        Rows rows;
    };
    ClockSlot london; // the default slot
    const Row rows[] = {
        {"northern summer",
         london,
         "2026-07-01T12:00:00Z",
         {{"Airport Code", "LHR"},
          {"ICAO", "EGLC"},
          {"Dial Prefix", "+44 20"},
          {"GMT offset", "00:00"},
          {"DST", "+01"},
          {"DST Starts", "3/29/2026 01:00"},
          {"DST Ends", "10/25/2026 02:00"},
          {"Longitude", "-0.06"},
          {"Latitude", "51.51"},
          {"Sunrise", "04:47"},
          {"Sunset", "21:21"}}},
        {"northern winter, the same period",
         london,
         "2026-12-15T12:00:00Z",
         {{"Airport Code", "LHR"},
          {"ICAO", "EGLC"},
          {"Dial Prefix", "+44 20"},
          {"GMT offset", "00:00"},
          {"DST", "00"},
          {"DST Starts", "3/29/2026 01:00"},
          {"DST Ends", "10/25/2026 02:00"},
          {"Longitude", "-0.06"},
          {"Latitude", "51.51"},
          {"Sunrise", "08:00"},
          {"Sunset", "15:52"}}},
        {"southern: the period that starts this year ends in the next",
         slotFor("Australia", "Sydney", 255, 2, 151.21f, -33.87f),
         "2026-01-15T01:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+10:00"},
          {"DST", "+01"},
          {"DST Starts", "10/4/2026 02:00"},
          {"DST Ends", "4/4/2027 03:00"},
          {"Longitude", "151.21"},
          {"Latitude", "-33.87"},
          {"Sunrise", "06:01"},
          {"Sunset", "20:09"}}},
        {"the year is the city's own, already 2027 there",
         slotFor("Australia", "Sydney", 255, 2, 151.21f, -33.87f),
         "2026-12-31T14:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+10:00"},
          {"DST", "+01"},
          {"DST Starts", "10/3/2027 02:00"},
          {"DST Ends", "4/2/2028 03:00"},
          {"Longitude", "151.21"},
          {"Latitude", "-33.87"},
          {"Sunrise", "05:48"},
          {"Sunset", "20:09"}}},
        {"no daylight saving: no dates",
         slotFor("Japan", "Tokyo", 235, 0, 139.69f, 35.69f),
         "2026-03-20T03:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+09:00"},
          {"DST", "n\\a"},
          {"Longitude", "139.69"},
          {"Latitude", "35.69"},
          {"Sunrise", "05:45"},
          {"Sunset", "17:53"}}},
        {"a rule number beyond the list: standard time, no dates",
         slotFor("Nowhere", "Lost", 95, 9, 0.f, 0.f),
         "2026-07-01T12:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+01:00"},
          {"DST", "00"},
          {"DST Starts", ""},
          {"DST Ends", ""},
          {"Longitude", "0.00"},
          {"Latitude", "0.00"},
          {"Sunrise", "07:00"},
          {"Sunset", "19:07"}}},
        {"polar day",
         slotFor("Svalbard and Jan Mayen", "Longyearbyen", 95, 3, 15.63f, 78.22f),
         "2026-06-21T12:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+01:00"},
          {"DST", "+01"},
          {"DST Starts", "3/29/2026 02:00"},
          {"DST Ends", "10/25/2026 03:00"},
          {"Longitude", "15.63"},
          {"Latitude", "78.22"},
          {"Sunrise", "Up all day"},
          {"Sunset", "Up all day"}}},
        {"polar night",
         slotFor("Svalbard and Jan Mayen", "Longyearbyen", 95, 3, 15.63f, 78.22f),
         "2026-12-21T12:00:00Z",
         {{"Airport Code", "XXX"},
          {"ICAO", "XXXX"},
          {"Dial Prefix", "+99 9"},
          {"GMT offset", "+01:00"},
          {"DST", "00"},
          {"DST Starts", "3/29/2026 02:00"},
          {"DST Ends", "10/25/2026 03:00"},
          {"Longitude", "15.63"},
          {"Latitude", "78.22"},
          {"Sunrise", "Down all day"},
          {"Sunset", "Down all day"}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const CityDetails details = cityDetails(row.city, *parseIsoUtc(row.utc), rules);
        EXPECT_EQ(details.cityName, toUtf8(row.city.cityName));
        EXPECT_EQ(details.countryName, toUtf8(row.city.countryName));
        ASSERT_EQ(details.rows.size(), row.rows.size());
        for (std::size_t i = 0; i < row.rows.size(); ++i) {
            const auto& [label, value] = row.rows[i];
            EXPECT_EQ(detailsLabel(details.rows[i].id), label);
            const std::string& ours = details.rows[i].value;
            if ((label == "Sunrise" || label == "Sunset") && minutesOf(value) >= 0) {
                EXPECT_NEAR(minutesOf(ours), minutesOf(value), 5) << label << " " << ours;
            } else {
                EXPECT_EQ(ours, value) << label;
            }
        }
    }
}

} // namespace
} // namespace zonara

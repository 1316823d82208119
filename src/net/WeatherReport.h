#pragma once
// A weather report as the weather window and `zonara weather` show it.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "net/WeatherFormat.h"

namespace zonara {

class CXMLParser;

struct WeatherPeriod {
    std::string name; // the period name with its words shortened
    int icon = 18;    // index into weatherIcons
    std::string high; // shown texts; empty when the period has none
    std::string low;
    std::string line; // the forecast line made of the two

    friend bool operator==(const WeatherPeriod&, const WeatherPeriod&) = default;
};

// A field the report lacks is empty (nothing), so that a window keeps what it
// showed there before.
struct WeatherReport {
    std::optional<std::string> heading;
    std::optional<std::string> date;
    std::optional<int> icon; // current conditions, index into weatherIcons
    std::optional<std::string> temperature;
    std::optional<std::string> humidity;
    std::optional<std::string> windSpeed;
    std::optional<std::string> barometer; // the reading the barometer choice selects
    std::optional<std::string> dewPoint;
    std::optional<std::string> windChill;
    std::vector<WeatherPeriod> forecast;
    std::optional<std::string> credit; // who the data come from

    friend bool operator==(const WeatherReport&, const WeatherReport&) = default;
};

// Reads the fields of a loaded report in their fixed order.
WeatherReport readWeatherReport(const CXMLParser& parser, const WeatherUnits& units);

// Nothing when the file is missing or is not XML.
std::optional<WeatherReport> loadWeatherReport(const std::filesystem::path& file,
                                               const WeatherUnits& units);

struct WeatherRow {
    std::string label;
    std::string value;

    friend bool operator==(const WeatherRow&, const WeatherRow&) = default;
};

// The current values under their labels, in the window's order; fields the
// report lacks are left out. The heading, the date and the description of the
// current conditions come first as "City", "Date" and "Conditions"; the data
// source's credit last, as "Source".
std::vector<WeatherRow> weatherNowRows(const WeatherReport& report);

inline constexpr std::string_view weatherFileName = "weather.xml";

} // namespace zonara

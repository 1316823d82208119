#include "WeatherMetJson.h"

#include <cstdio>

#include <nlohmann/json.hpp>

namespace zonara::test {

namespace {

using Json = nlohmann::json;

void putNumber(Json& object, const char* key, std::optional<double> value) {
    if (value)
        object[key] = *value;
}

void putSummary(Json& data, const char* period, const std::string& symbol) {
    if (!symbol.empty())
        data[period]["summary"]["symbol_code"] = symbol;
}

std::string utcTime(int day, int hour) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "2024-06-%02dT%02d:00:00Z", day, hour);
    return buffer;
}

// The 12-hour summary of each local half-day window, by the window's UTC start.
std::string windowSymbol(int day, int hour) {
    const int local = hour + 1; // BST
    const bool daytime = local >= 6 && local < 18;
    // Mornings before 06:00 local belong to the previous day's night.
    const int windowDay = local < 6 ? day - 1 : day;
    switch (windowDay) {
    case 3:
        return daytime ? "fair_day" : "clearsky_night";
    case 4:
        return daytime ? "lightrainshowers_day" : "lightrainshowers_night";
    case 5:
        return "heavyrainandthunder";
    default:
        return daytime ? "partlycloudy_day" : "snowshowers_night";
    }
}

} // namespace

std::string metJson(const std::vector<MetStep>& steps, const std::string& updatedAt) {
    Json series = Json::array();
    for (const MetStep& step : steps) {
        Json details = Json::object();
        putNumber(details, "air_temperature", step.celsius);
        putNumber(details, "relative_humidity", step.humidity);
        putNumber(details, "wind_speed", step.windSpeed);
        putNumber(details, "wind_from_direction", step.windFrom);
        putNumber(details, "air_pressure_at_sea_level", step.pressure);
        details["cloud_area_fraction"] = 50.0;
        Json data;
        data["instant"]["details"] = details;
        putSummary(data, "next_1_hours", step.symbol1);
        putSummary(data, "next_6_hours", step.symbol6);
        putSummary(data, "next_12_hours", step.symbol12);
        if (!step.symbol6.empty()) {
            data["next_6_hours"]["details"]["precipitation_amount"] = 0.0;
            putNumber(data["next_6_hours"]["details"], "air_temperature_max", step.max6);
            putNumber(data["next_6_hours"]["details"], "air_temperature_min", step.min6);
        }
        series.push_back({{"time", step.time}, {"data", data}});
    }
    Json document;
    document["type"] = "Feature";
    document["geometry"] = {{"type", "Point"}, {"coordinates", {-0.13, 51.51, 11}}};
    document["properties"]["meta"]["updated_at"] = updatedAt;
    document["properties"]["meta"]["units"] = {{"air_temperature", "celsius"}};
    document["properties"]["timeseries"] = series;
    return document.dump();
}

std::vector<MetStep> londonSteps() {
    std::vector<MetStep> steps;
    // Hourly from Monday 10:00Z to Thursday 00:00Z.
    for (int day = 3, hour = 10; day < 6 || (day == 6 && hour == 0);) {
        MetStep step;
        step.time = utcTime(day, hour);
        const int local = hour + 1;
        step.symbol1 = local >= 6 && local < 18 ? "partlycloudy_day" : "partlycloudy_night";
        step.symbol6 = "cloudy";
        step.symbol12 = windowSymbol(day, hour);
        if (hour == 14) // 15:00 local: the day's high, 20, 21 and 22
            step.celsius = 20.0 + (day - 3);
        if (hour == 3) // 04:00 local: the night's low, 5 and 6
            step.celsius = 5.0 + (day - 4);
        steps.push_back(step);
        if (++hour == 24) {
            hour = 0;
            ++day;
        }
    }
    steps.front().celsius = 15.0; // now: 59 °F
    steps.front().humidity = 72.0;
    steps.front().windSpeed = 4.0; // 8.95 mph
    steps.front().windFrom = 225.0;
    steps.front().pressure = 1013.25;
    steps.back().max6 = 13.0;
    steps.back().min6 = 3.0; // Wednesday night's low
    // Six-hourly, as the provider gives the later days.
    struct Later {
        int day, hour;
        double celsius, max6, min6;
    };
    for (const Later& later :
         {Later{6, 6, 10, 18, 9}, Later{6, 12, 17, 23, 15}, Later{6, 18, 14, 14, 8},
          Later{7, 0, 9, 9, 2}, Later{7, 6, 11, 30, -20}}) {
        MetStep step;
        step.time = utcTime(later.day, later.hour);
        step.celsius = later.celsius;
        step.symbol6 = "rain";
        step.symbol12 = windowSymbol(later.day, later.hour);
        step.max6 = later.max6;
        step.min6 = later.min6;
        steps.push_back(step);
    }
    return steps;
}

std::string londonJson() {
    return metJson(londonSteps(), "2024-06-03T09:31:12Z");
}

} // namespace zonara::test

#pragma once
// Forecasts in the shape of MET Norway's locationforecast compact JSON, for tests.

#include <optional>
#include <string>
#include <vector>

namespace zonara::test {

struct MetStep {
    std::string time; // "2024-06-03T10:00:00Z"
    std::optional<double> celsius = 12.0;
    std::optional<double> humidity = 80.0;
    std::optional<double> windSpeed = 2.0;
    std::optional<double> windFrom = 180.0;
    std::optional<double> pressure = 1015.0;
    std::string symbol1;
    std::string symbol6;
    std::string symbol12;
    std::optional<double> max6;
    std::optional<double> min6;
};

std::string metJson(const std::vector<MetStep>& steps, const std::string& updatedAt);

// A London forecast issued 2024-06-03T09:31:12Z (Monday; London is at UTC+1),
// hourly from 10:00Z Monday to 00:00Z Thursday, then six-hourly to 06:00Z
// Friday. The worked values are in the tests that use it.
std::vector<MetStep> londonSteps();
std::string londonJson();

} // namespace zonara::test

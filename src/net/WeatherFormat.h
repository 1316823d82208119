#pragma once
// How report values are shown: period names, temperatures, the forecast line.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zonara {

// The two display choices of the weather window.
struct WeatherUnits {
    bool celsius = true;  // temperatures in °C instead of the report's °F
    bool millibar = true; // the report's second barometer reading instead of the first
};

// A forecast high or low of this value means the period has none.
inline constexpr std::int32_t noWeatherTemperature = -1000;

// Each blank-separated word that is a known period word becomes its short
// form (case-blind); other words and the blanks stay as they are.
std::string shortenPeriodName(std::string_view name);

// Whole °F to whole °C in integer arithmetic, truncated toward zero.
std::int32_t fahrenheitToCelsius(std::int32_t fahrenheit);

// "%i °C" or "%i °F" of a value the report gives in °F.
std::string formatTemperature(std::int32_t fahrenheit, const WeatherUnits& units);

// A forecast high or low: empty for the "none" value.
std::string formatForecastTemperature(std::int32_t fahrenheit, const WeatherUnits& units);

// "Day : High(%s)  Low(%s)" with the two texts.
std::string formatForecastLine(std::string_view high, std::string_view low);

} // namespace zonara

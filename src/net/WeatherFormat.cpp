#include "net/WeatherFormat.h"

#include <array>
#include <utility>

#include "clocks/SkinValue.h"
#include "net/WeatherTexts.h"

namespace zonara {

namespace {

// The server's spelling of Wednesday is matched as it is; the correct
// spelling gets no short form.
constexpr std::array<std::pair<std::string_view, std::string_view>, 12> periodWords = {{
    {"EVENING", "EVE"},
    {"MORNING", "MORN"},
    {"AFTERNOON", "NOON"},
    {"OVERNIGHT", "NIGHT"},
    {"NIGHT", "NIGHT"},
    {"MONDAY", "MON"},
    {"TUESDAY", "TUES"},
    {"WEDNESSDAY", "WED"},
    {"THURSDAY", "THURS"},
    {"FRIDAY", "FRI"},
    {"SATURDAY", "SAT"},
    {"SUNDAY", "SUN"},
}};

std::string_view shortWord(std::string_view word) {
    for (const auto& [full, shortForm] : periodWords) {
        if (isKeyword(word, full))
            return shortForm;
    }
    return word;
}

} // namespace

std::string shortenPeriodName(std::string_view name) {
    std::string out;
    std::size_t at = 0;
    while (at <= name.size()) {
        const std::size_t blank = name.find(' ', at);
        const std::size_t end = blank == std::string_view::npos ? name.size() : blank;
        out += shortWord(name.substr(at, end - at));
        if (blank == std::string_view::npos)
            break;
        out += ' ';
        at = blank + 1;
    }
    return out;
}

std::int32_t fahrenheitToCelsius(std::int32_t fahrenheit) {
    // Widened so that extreme report values cannot overflow; C++ division
    // truncates toward zero.
    return std::int32_t((std::int64_t(fahrenheit) - 32) * 5 / 9);
}

std::string formatTemperature(std::int32_t fahrenheit, const WeatherUnits& units) {
    if (units.celsius)
        return std::to_string(fahrenheitToCelsius(fahrenheit)) + " \u00B0C";
    return std::to_string(fahrenheit) + " \u00B0F";
}

std::string formatForecastTemperature(std::int32_t fahrenheit, const WeatherUnits& units) {
    if (fahrenheit == noWeatherTemperature)
        return {};
    return formatTemperature(fahrenheit, units);
}

std::string formatForecastLine(std::string_view high, std::string_view low) {
    // The format's two %s take the texts in order.
    const std::string_view format = weather_text::forecastLine;
    std::string out;
    std::size_t used = 0;
    const std::string_view values[] = {high, low};
    std::size_t at = 0;
    while (at < format.size()) {
        const std::size_t mark = format.find("%s", at);
        if (mark == std::string_view::npos || used == 2) {
            out += format.substr(at);
            break;
        }
        out += format.substr(at, mark - at);
        out += values[used++];
        at = mark + 2;
    }
    return out;
}

} // namespace zonara

#pragma once
// The weather pictures: report names to table indices, descriptions and files.

#include <array>
#include <cstddef>
#include <string_view>

namespace zonara {

struct WeatherIcon {
    std::string_view name; // as a report names it; empty for the one "any other name" row
    std::string_view description;
};

// The index selects the picture, so the order is fixed, including the rows
// that are out of alphabetical order.
inline constexpr std::array<WeatherIcon, 40> weatherIcons = {{
    {"blizzard.gif", "Blizzard"},
    {"blowingsnow.gif", "Blowing Snow"},
    {"chancetstorm.gif", "Chance of a thunder storm"},
    {"chancetstormn.gif", "Chance of a thunder storm"},
    {"cloudy.gif", "Cloudy"},
    {"drizzle.gif", "Drizzle"},
    {"fair.gif", "Fair"},
    {"fdrizzle.gif", "Freezing drizzel"},
    {"flurries.gif", "Snow flurries"},
    {"fog.gif", "Fog"},
    {"freezingrain.gif", "Freezing rain"},
    {"hazy.gif", "Hazy"},
    {"mcloudy.gif", "Mostly cloudy"},
    {"mcloudyn.gif", "Mostly cloudy"},
    {"mcloudynr.gif", "Mostly cloudy, some rain"},
    {"mcloudyns.gif", "Most cloudy, some snow"},
    {"mcloudyr.gif", "Mostly cloudy, some rain"},
    {"mcloudys.gif", "Most cloudy, some snow"},
    {"", "Not Known"},
    {"pcloudy.gif", "Partly cloudy"},
    {"pcloudyn.gif", "Partly cloudy"},
    {"pcloudynr.gif", "Partly cloudy, some rain"},
    {"pcloudyns.gif", "Partly cloudy, some snow"},
    {"pcloudyr.gif", "Partly cloudy, some rain"},
    {"pcloudyrn.gif", "Partly cloudy, some rain"},
    {"pcloudys.gif", "Partly cloudy, some snow"},
    {"rain.gif", "Rain"},
    {"rainandsnow.gif", "Rain and Snow"},
    {"showers.gif", "Showers"},
    {"sleet.gif", "Sleet"},
    {"smoke.gif", "Smoke"},
    {"snow.gif", "Snow"},
    {"snowshowers.gif", "Snow Showers"},
    {"sunny.gif", "Sunny"},
    {"sunnyn.gif", "Clear"},
    {"tstorm.gif", "Thunder Storm"},
    {"tstormn.gif", "Thunder Storm"},
    {"wind.gif", "Windy"},
    {"wswarning.gif", "Winter storm warning"},
    {"wswatch.gif", "Winter storm watch"},
}};

inline constexpr int unknownWeatherIcon = 18;

// Case-blind; any name outside the table is unknownWeatherIcon.
int weatherIconIndex(std::string_view name);
// An index outside the table reads as unknownWeatherIcon.
std::string_view weatherIconDescription(int index);
// The picture under Graphics/: the report's name, and "na.gif" for the unknown row.
std::string_view weatherIconFile(int index);

} // namespace zonara

#include "net/WeatherSymbols.h"

#include <array>

namespace zonara {

namespace {

struct SymbolIcons {
    std::string_view symbol;
    std::string_view day;
    std::string_view night;
};

// Every condition of the provider's list, without the day/night suffix. Two of
// the provider's own names carry an extra "s" ("lightssleet...",
// "lightssnow..."); they are listed as the provider spells them.
constexpr std::array<SymbolIcons, 41> symbolTable = {{
    {"clearsky", "sunny.gif", "sunnyn.gif"},
    {"fair", "fair.gif", "sunnyn.gif"},
    {"partlycloudy", "pcloudy.gif", "pcloudyn.gif"},
    {"cloudy", "cloudy.gif", "mcloudyn.gif"},
    {"fog", "fog.gif", "fog.gif"},
    {"lightrainshowers", "pcloudyr.gif", "pcloudynr.gif"},
    {"rainshowers", "mcloudyr.gif", "mcloudynr.gif"},
    {"heavyrainshowers", "showers.gif", "showers.gif"},
    {"lightrainshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"rainshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"heavyrainshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"lightsleetshowers", "rainandsnow.gif", "rainandsnow.gif"},
    {"sleetshowers", "rainandsnow.gif", "rainandsnow.gif"},
    {"heavysleetshowers", "rainandsnow.gif", "rainandsnow.gif"},
    {"lightssleetshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"sleetshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"heavysleetshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"lightsnowshowers", "pcloudys.gif", "pcloudyns.gif"},
    {"snowshowers", "mcloudys.gif", "mcloudyns.gif"},
    {"heavysnowshowers", "snowshowers.gif", "snowshowers.gif"},
    {"lightssnowshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"snowshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"heavysnowshowersandthunder", "chancetstorm.gif", "chancetstormn.gif"},
    {"lightrain", "drizzle.gif", "drizzle.gif"},
    {"rain", "rain.gif", "rain.gif"},
    {"heavyrain", "rain.gif", "rain.gif"},
    {"lightrainandthunder", "tstorm.gif", "tstormn.gif"},
    {"rainandthunder", "tstorm.gif", "tstormn.gif"},
    {"heavyrainandthunder", "tstorm.gif", "tstormn.gif"},
    {"lightsleet", "sleet.gif", "sleet.gif"},
    {"sleet", "sleet.gif", "sleet.gif"},
    {"heavysleet", "sleet.gif", "sleet.gif"},
    {"lightsleetandthunder", "tstorm.gif", "tstormn.gif"},
    {"sleetandthunder", "tstorm.gif", "tstormn.gif"},
    {"heavysleetandthunder", "tstorm.gif", "tstormn.gif"},
    {"lightsnow", "flurries.gif", "flurries.gif"},
    {"snow", "snow.gif", "snow.gif"},
    {"heavysnow", "snow.gif", "snow.gif"},
    {"lightsnowandthunder", "wswatch.gif", "wswatch.gif"},
    {"snowandthunder", "wswatch.gif", "wswatch.gif"},
    {"heavysnowandthunder", "wswarning.gif", "wswarning.gif"},
}};

// Beaufort 7 (near gale) and the blizzard criterion of 35 mph.
constexpr double nearGale = 13.9;
constexpr double blizzardWind = 15.6;

std::string_view baseSymbol(std::string_view symbol) {
    for (const std::string_view suffix : {"_day", "_night", "_polartwilight"}) {
        if (symbol.ends_with(suffix))
            return symbol.substr(0, symbol.size() - suffix.size());
    }
    return symbol;
}

bool isDrySky(std::string_view base) {
    return base == "clearsky" || base == "fair" || base == "partlycloudy" || base == "cloudy";
}

} // namespace

std::string_view metSymbolIcon(std::string_view symbol, const SymbolContext& context) {
    const std::string_view base = baseSymbol(symbol);
    const bool freezing = context.celsius && *context.celsius <= 0.0;
    const double wind = context.windMetresPerSecond.value_or(0.0);
    if (freezing && base == "lightrain")
        return "fdrizzle.gif";
    if (freezing && (base == "rain" || base == "heavyrain"))
        return "freezingrain.gif";
    if (wind >= blizzardWind && (base == "snow" || base == "heavysnow"))
        return "blizzard.gif";
    if (wind >= nearGale && isDrySky(base))
        return "wind.gif";
    for (const SymbolIcons& row : symbolTable) {
        if (row.symbol == base)
            return context.night ? row.night : row.day;
    }
    return "na.gif";
}

bool metSymbolIsNight(std::string_view symbol, bool fallback) {
    if (symbol.ends_with("_night"))
        return true;
    if (symbol.ends_with("_day") || symbol.ends_with("_polartwilight"))
        return false;
    return fallback;
}

} // namespace zonara

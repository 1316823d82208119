#pragma once
// MET Norway's weather symbols as the picture names of a weather report.

#include <optional>
#include <string_view>

namespace zonara {

struct SymbolContext {
    bool night = false;
    std::optional<double> celsius; // air temperature, when known
    std::optional<double> windMetresPerSecond;
};

// A symbol code such as "rainshowers_night": the picture name from the icon
// table for its condition, with the night picture where the table has one.
// The suffix does not decide day or night; the context does. Rain at or below
// 0 °C becomes freezing rain or drizzle, snow in a gale a blizzard, and a dry
// sky in a near gale "wind.gif". An unknown symbol gives "na.gif".
std::string_view metSymbolIcon(std::string_view symbol, const SymbolContext& context);

// True for a "_night" suffix, false for "_day" or "_polartwilight", and the
// fallback for a symbol without a suffix.
bool metSymbolIsNight(std::string_view symbol, bool fallback);

} // namespace zonara

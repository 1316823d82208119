#pragma once
// Where the weather window keeps its choices, and which city it asks about.

#include "core/DstRule.h"
#include "core/Settings.h"
#include "net/WeatherFormat.h"
#include "net/WeatherWorker.h"

namespace zonara {

// Celsius and the barometer choice live in the settings file's two flags:
// useCelsius (°C instead of °F) and useMillibar (the report's millibar reading
// instead of inches).
WeatherUnits weatherUnitsOf(const Settings& settings);
void setWeatherUnits(Settings& settings, const WeatherUnits& units);

// The weather is for the selected clock slot (clamped to the four slots).
const ClockSlot& weatherSlotOf(const Settings& settings);

// The slot's query key as stored, and its place for direct mode: heading
// "City, Country", coordinates, and local time by its zone and rule.
WeatherJob weatherJobFor(const ClockSlot& slot, DstRuleList rules);

// "City, Country" of the stored report's location, as the settings keep it;
// empty when none was stored.
std::string storedWeatherLocation(const Settings& settings);

// After a report was stored: the location the stored report is for, in the
// settings' weather query, city and country.
void rememberWeatherLocation(Settings& settings, const ClockSlot& slot);

} // namespace zonara

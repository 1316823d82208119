#include "net/WeatherSettings.h"

#include <algorithm>

#include "core/Text.h"

namespace zonara {

WeatherUnits weatherUnitsOf(const Settings& settings) {
    return {settings.useCelsius != 0, settings.useMillibar != 0};
}

void setWeatherUnits(Settings& settings, const WeatherUnits& units) {
    settings.useCelsius = units.celsius ? 1 : 0;
    settings.useMillibar = units.millibar ? 1 : 0;
}

const ClockSlot& weatherSlotOf(const Settings& settings) {
    const std::int32_t last = std::int32_t(settings.slots.size()) - 1;
    return settings.slots[std::size_t(std::clamp(settings.selectedSlot, 0, last))];
}

WeatherJob weatherJobFor(const ClockSlot& slot, DstRuleList rules) {
    WeatherJob job;
    job.queryKey = toUtf8(slot.weatherQuery);
    job.place.heading = toUtf8(slot.cityName);
    if (!slot.countryName.empty())
        job.place.heading += ", " + toUtf8(slot.countryName);
    job.place.latitude = slot.latitude;
    job.place.longitude = slot.longitude;
    job.place.utcOffsetMinutes =
        zoneOffset(slot.timeZoneIndex, slot.dstRuleIndex, std::move(rules));
    return job;
}

std::string storedWeatherLocation(const Settings& settings) {
    std::string text = toUtf8(settings.weatherCity);
    if (!text.empty() && !settings.weatherCountry.empty())
        text += ", ";
    return text + toUtf8(settings.weatherCountry);
}

void rememberWeatherLocation(Settings& settings, const ClockSlot& slot) {
    settings.weatherQuery = slot.weatherQuery;
    settings.weatherCity = slot.cityName;
    settings.weatherCountry = slot.countryName;
}

} // namespace zonara

#pragma once
// A place a weather report is made for: its heading, coordinates and local time.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/DstRule.h"

namespace zonara {

struct WeatherPlace {
    std::string heading; // "London, United Kingdom"
    double latitude = 0;
    double longitude = 0;
    // Minutes to add to a UTC instant (seconds since 1970) for the local time
    // there; UTC when unset.
    std::function<std::int32_t(std::int64_t)> utcOffsetMinutes;
};

// The offset of a time zone and daylight-saving rule, as the clocks apply them.
std::function<std::int32_t(std::int64_t)> zoneOffset(std::int32_t timeZoneIndex,
                                                     std::int32_t dstRuleIndex, DstRuleList rules);

// "%XX" escapes and "+" as a blank undone; a broken escape stays as it is.
std::string decodeQueryText(std::string_view text);

// The value of one parameter of a query string, still encoded; nothing when
// the parameter is absent.
std::optional<std::string> queryParameter(std::string_view query, std::string_view name);

// The city whose weather query key matches, looked up in the country, city and
// daylight-saving files of a folder. Keys are compared decoded and without
// regard to ASCII case, so "london%2c+gb" finds "London%2C+GB".
std::optional<WeatherPlace> findWeatherPlace(const std::filesystem::path& worldFolder,
                                             std::string_view queryKey);

} // namespace zonara

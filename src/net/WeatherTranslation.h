#pragma once
// Turns MET Norway's locationforecast (compact JSON) into a weather report.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "net/WeatherPlace.h"

namespace zonara {

// A report is read by the client in one response of at most 4095 bytes.
inline constexpr std::size_t weatherReportLimit = 4095;

inline constexpr std::string_view weatherCredit = "Data from MET Norway (CC BY 4.0)";

// The report for a place at a moment (seconds since 1970, UTC): the heading
// and the forecast's update time, the conditions of the latest step not after
// the moment, and the day (06 to 18 local time) and night (18 to 06) periods
// of four days from the local date, each with a high or a low in whole °F and
// -1000 for the other. Periods already over are left out, and trailing ones
// too when the report would reach the limit. Nothing when the JSON is not a
// forecast with at least one time step.
std::optional<std::string> translateMetForecast(std::string_view json, const WeatherPlace& place,
                                                std::int64_t nowUtc);

} // namespace zonara

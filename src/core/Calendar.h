#pragma once
// Gregorian calendar arithmetic on plain integers.

#include <cstdint>

namespace zonara {

bool isLeapYear(std::int32_t year);
// 0 for a month outside [1, 12].
std::int32_t daysInMonth(std::int32_t month, std::int32_t year);
// The Julian day number; 2000-01-01 is 2451545.
std::int32_t dayNumber(std::int32_t year, std::int32_t month, std::int32_t day);
// 0 Sunday ... 6 Saturday.
std::int32_t weekdayOf(std::int32_t year, std::int32_t month, std::int32_t day);

} // namespace zonara

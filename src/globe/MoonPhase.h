#pragma once
// The moon's phase on a date as one of eight steps of a 29.53-day synodic month.

#include <string_view>

namespace zonara {

// 0 new moon, 1-3 waxing, 4 full moon, 5-7 waning. A lunation fraction of 15/16 or more
// wraps to 0. Dates before the 1900 reference new moon give a negative fraction, which
// still lands in 0..7 by the final AND 7.
int MoonPhaseIndex(int year, int month, int day);

// "New moon", "Waxing crescent" ... "Waning crescent"; empty outside 0..7.
std::string_view moonPhaseName(int index);

} // namespace zonara

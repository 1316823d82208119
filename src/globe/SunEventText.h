#pragma once
// Sun events as a user sees them: placed on a date, turned into a city's local time and
// written as text. Shared by the full clock, the city details and the command line.

#include <optional>
#include <string>
#include <string_view>

#include "core/DstRule.h"
#include "core/LocaleFormat.h"
#include "core/ZoneTime.h"
#include "globe/SunTimes.h"

namespace zonara {

// Shown instead of a time on a day without sunrise or sunset, for both events.
inline constexpr std::string_view sunUpAllDayText = "Up all day";
inline constexpr std::string_view sunDownAllDayText = "Down all day";

// The UT time of day put on the date of `dateAndZone` (its year, month and day; its time
// of day is ignored) and turned into local time by its timeZoneIndex and dstRuleIndex.
// Nothing on a polar day or night.
std::optional<ZoneTime> sunEventLocalTime(const SunTime& ut, const ZoneTime& dateAndZone,
                                          const DstRuleList& rules);

// The local time as the clock's time text ("HH:mm" with the 24-hour setting, else the
// locale's 12-hour form), or the fixed text of a polar day or night.
std::string sunEventText(const SunTime& ut, const ZoneTime& dateAndZone, const DstRuleList& rules,
                         bool use24Hour = true, const LocaleFormat& locale = englishLocale());

// The UT time itself as "HH:MM:SS", or the fixed text of a polar day or night.
std::string sunEventUtText(const SunTime& ut);

} // namespace zonara

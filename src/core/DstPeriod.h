#pragma once
// When daylight saving starts and ends under a rule in a given year.

#include <cstdint>
#include <optional>

#include "core/DstRule.h"
#include "core/SystemTime.h"
#include "core/ZoneTime.h"

namespace zonara {

// Both moments are local standard time, as the rule texts name them and as
// ZoneTime::ApplyZone compares them: daylight saving is in force from `start`
// through the whole minute `end`. A rule whose start month is later than its
// end month spans the turn of the year; its end is then taken in the following
// year, so `end` always follows `start`.
struct DstPeriod {
    ZoneTime start; // the first minute of daylight time
    ZoneTime end;   // the last minute of daylight time
};

// The period of a rule that starts in `year`.
DstPeriod dstPeriod(const DstRule& rule, std::int32_t year);
// Nothing for rule number 0 or a number the list does not have.
std::optional<DstPeriod> dstPeriod(const DstRuleList& rules, std::int32_t ruleIndex,
                                   std::int32_t year);

// The wall-clock time at which the clocks go forward (standard time), and at
// which they go back (daylight time, a minute after the period's last one):
// the times people say, as in "clocks go back at 02:00".
ZoneTime clocksForwardAt(const DstPeriod& period);
ZoneTime clocksBackAt(const DstPeriod& period);

// The same two changes as UTC instants, for a city in the zone with this key.
SystemTime dstStartUtc(const DstPeriod& period, std::int32_t timeZoneIndex);
SystemTime dstEndUtc(const DstPeriod& period, std::int32_t timeZoneIndex);

} // namespace zonara

#pragma once
// A city's or a clock slot's local time at a UTC instant, in one call.

#include <cstdint>

#include "core/DstRule.h"
#include "core/SystemTime.h"
#include "core/ZoneTime.h"

namespace zonara {

struct City;
struct ClockSlot;

// The UTC instant turned into local time by the zone key and the rule number
// (0 none, else 1-based in `rules`), with its daylight-saving state set.
ZoneTime localTime(const SystemTime& utc, std::int32_t timeZoneIndex, std::int32_t dstRuleIndex,
                   const DstRuleList& rules);
ZoneTime localTime(const SystemTime& utc, const ClockSlot& slot, const DstRuleList& rules);
ZoneTime localTime(const SystemTime& utc, const City& city, const DstRuleList& rules);

} // namespace zonara

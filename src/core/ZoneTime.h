#pragma once
// A broken-down date and time that turns UTC into a city's local time.

#include <cstdint>
#include <string_view>

#include "core/DstRule.h"
#include "core/SystemTime.h"

namespace zonara {

class ClockSource;

struct ZoneTime {
    std::int32_t day = 1;     // [1, 31]
    std::int32_t weekday = 4; // 0 Sunday ... 6 Saturday
    std::int32_t month = 1;   // [1, 12]
    std::int32_t year = 1970;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    std::int32_t timeZoneIndex = 85;
    std::int32_t dstRuleIndex = 0; // 0 none, else the 1-based rule number
    std::int32_t dstState = -1;    // -1 no rule, 0 standard time, 1 daylight time

    void setUtc(const SystemTime& utc);
    void SetUtcNow(const ClockSource& clock);
    SystemTime ToSystemTime() const;

    void AddMinutes(std::int32_t n);      // n in [0, 1440)
    void SubtractMinutes(std::int32_t n); // n in [0, 1440)
    void NextDay();
    void PreviousDay();

    // Sets day, month, hour, minute and weekday to the moment a rule text
    // names in the given year.
    void ResolveRule(std::string_view text, std::int32_t forYear);
    // The same for a text read before.
    void ResolveRule(const RuleMoment& moment, std::int32_t forYear);

    // Turns this UTC time into local time by timeZoneIndex and dstRuleIndex,
    // and sets dstState.
    void ApplyZone(const DstRuleList& rules);
};

} // namespace zonara

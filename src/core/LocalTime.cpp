#include "core/LocalTime.h"

#include "core/City.h"
#include "core/ClockSlot.h"

namespace zonara {

ZoneTime localTime(const SystemTime& utc, std::int32_t timeZoneIndex, std::int32_t dstRuleIndex,
                   const DstRuleList& rules) {
    ZoneTime local;
    local.setUtc(utc);
    local.timeZoneIndex = timeZoneIndex;
    local.dstRuleIndex = dstRuleIndex;
    local.ApplyZone(rules);
    return local;
}

ZoneTime localTime(const SystemTime& utc, const ClockSlot& slot, const DstRuleList& rules) {
    return localTime(utc, slot.timeZoneIndex, slot.dstRuleIndex, rules);
}

ZoneTime localTime(const SystemTime& utc, const City& city, const DstRuleList& rules) {
    return localTime(utc, city.timeZoneIndex, city.dstRuleIndex, rules);
}

} // namespace zonara

#pragma once
// A clock slot for tests: a city's name, zone, rule and place, the rest left at the defaults.

#include "core/ClockSlot.h"

namespace zonara::test {

inline ClockSlot slotCity(const char16_t* name, int zone, int rule, float longitude,
                          float latitude) {
    ClockSlot slot;
    slot.cityName = name;
    slot.timeZoneIndex = zone;
    slot.dstRuleIndex = rule;
    slot.longitude = longitude;
    slot.latitude = latitude;
    return slot;
}

} // namespace zonara::test

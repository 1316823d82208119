#pragma once
// The rows that 'now' and 'time' print: one city's local time and zone.

#include <cstdint>
#include <string>
#include <vector>

#include "core/DstRule.h"
#include "core/SystemTime.h"

namespace zonara {

struct ClockRowInput {
    std::string slot; // "0" to "3", or "-" for a city outside the slots
    std::string city;
    std::string country;
    std::int32_t timeZoneIndex = 0;
    std::int32_t dstRuleIndex = 0;
};

std::vector<std::string> clockRowHeader();
// With tsv the columns are fixed for scripts; otherwise they follow the
// 24-hour setting and read like the full clock.
std::vector<std::string> clockRow(const ClockRowInput& input, const SystemTime& utc,
                                  const DstRuleList& rules, bool use24Hour, bool tsv);

} // namespace zonara

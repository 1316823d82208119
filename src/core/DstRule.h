#pragma once
// A daylight-saving rule: start and end, each in the rule notation of ZoneTime.

#include <string>
#include <vector>

namespace zonara {

struct DstRule {
    std::string startText;
    std::string endText;
};

// Element n - 1 is rule number n.
using DstRuleList = std::vector<DstRule>;

} // namespace zonara

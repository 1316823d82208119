#pragma once
// A daylight-saving rule: its start and end texts, each read once into the moment it names.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zonara {

// What a rule text ("LastSunMar 01:00", "FirstSunAfter08Mar 02:00", "15Oct 03:00")
// names before a year is given: ZoneTime::ResolveRule places it in a year.
struct RuleMoment {
    enum class Form : std::int8_t { Fixed, First, Last };
    Form form = Form::Fixed;
    bool after = false;       // First or Last on or after / on or before `day`
    std::int32_t weekday = 0; // First and Last: 0 Sunday ... 6 Saturday
    std::int32_t day = 0;     // the fixed day, or the day after "After"
    std::int32_t month = 0;   // 1 to 12; 0 for a text without a month's name
    std::int32_t hour = 0;
    std::int32_t minute = 0;

    friend bool operator==(const RuleMoment&, const RuleMoment&) = default;
};

// Reads a rule text by its fixed character positions; what is missing or
// unknown reads as 0 (an unknown weekday is Sunday). An empty text gives the
// default moment.
RuleMoment readRuleText(std::string_view text);

struct DstRule {
    DstRule() = default;
    DstRule(std::string startText, std::string endText);

    std::string startText;
    std::string endText;
    // The texts as read when the rule was made, so a clock tick reads no text.
    RuleMoment start;
    RuleMoment end;
};

// Element n - 1 is rule number n.
using DstRuleList = std::vector<DstRule>;

} // namespace zonara

#include "core/DstPeriod.h"

#include "core/ZoneTable.h"

namespace zonara {

namespace {

// Local standard time back to UTC: the zone's offset taken off.
SystemTime standardToUtc(ZoneTime local, std::int32_t timeZoneIndex) {
    const std::int32_t offset = zoneRow(timeZoneIndex).offsetMinutes;
    if (offset > 0) {
        local.SubtractMinutes(offset);
    } else if (offset < 0) {
        local.AddMinutes(-offset);
    }
    return local.ToSystemTime();
}

// Daylight saving ends once the whole minute `end` has passed.
ZoneTime firstStandardMinute(const DstPeriod& period) {
    ZoneTime t = period.end;
    t.AddMinutes(1);
    return t;
}

} // namespace

DstPeriod dstPeriod(const DstRule& rule, std::int32_t year) {
    DstPeriod period;
    period.start.ResolveRule(rule.startText, year);
    period.end.ResolveRule(rule.endText, year);
    // The months alone decide, exactly as ApplyZone decides whether the rule
    // spans the turn of the year.
    if (period.start.month > period.end.month) {
        period.end.ResolveRule(rule.endText, year + 1);
    }
    return period;
}

std::optional<DstPeriod> dstPeriod(const DstRuleList& rules, std::int32_t ruleIndex,
                                   std::int32_t year) {
    if (ruleIndex <= 0 || std::size_t(ruleIndex) > rules.size()) {
        return std::nullopt;
    }
    DstPeriod period = dstPeriod(rules[std::size_t(ruleIndex) - 1], year);
    period.start.dstRuleIndex = ruleIndex;
    period.end.dstRuleIndex = ruleIndex;
    return period;
}

ZoneTime clocksForwardAt(const DstPeriod& period) {
    return period.start;
}

ZoneTime clocksBackAt(const DstPeriod& period) {
    ZoneTime t = firstStandardMinute(period);
    t.AddMinutes(60);
    return t;
}

SystemTime dstStartUtc(const DstPeriod& period, std::int32_t timeZoneIndex) {
    return standardToUtc(period.start, timeZoneIndex);
}

SystemTime dstEndUtc(const DstPeriod& period, std::int32_t timeZoneIndex) {
    return standardToUtc(firstStandardMinute(period), timeZoneIndex);
}

} // namespace zonara

#include "globe/SunEventText.h"

#include <cstdio>

#include "core/Calendar.h"
#include "core/LocalTime.h"
#include "core/SystemTime.h"

namespace zonara {

namespace {

std::optional<std::string> polarText(const SunTime& ut) {
    switch (ut.state) {
    case SunEventState::PolarDay:
        return std::string(sunUpAllDayText);
    case SunEventState::PolarNight:
        return std::string(sunDownAllDayText);
    case SunEventState::Occurs:
        break;
    }
    return std::nullopt;
}

} // namespace

std::optional<ZoneTime> sunEventLocalTime(const SunTime& ut, const ZoneTime& dateAndZone,
                                          const DstRuleList& rules) {
    if (ut.state != SunEventState::Occurs) {
        return std::nullopt;
    }
    SystemTime utc;
    utc.year = dateAndZone.year;
    utc.month = dateAndZone.month;
    utc.day = dateAndZone.day;
    utc.dayOfWeek = weekdayOf(utc.year, utc.month, utc.day);
    utc.hour = ut.hour;
    utc.minute = ut.minute;
    utc.second = ut.second;
    return localTime(utc, dateAndZone.timeZoneIndex, dateAndZone.dstRuleIndex, rules);
}

std::string sunEventText(const SunTime& ut, const ZoneTime& dateAndZone, const DstRuleList& rules,
                         bool use24Hour, const LocaleFormat& locale) {
    if (auto text = polarText(ut)) {
        return *text;
    }
    const auto local = sunEventLocalTime(ut, dateAndZone, rules);
    return formatClockTime(*local, use24Hour, locale);
}

std::string sunEventUtText(const SunTime& ut) {
    if (auto text = polarText(ut)) {
        return *text;
    }
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", static_cast<int>(ut.hour),
                  static_cast<int>(ut.minute), static_cast<int>(ut.second));
    return buffer;
}

} // namespace zonara

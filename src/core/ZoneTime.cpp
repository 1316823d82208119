#include "core/ZoneTime.h"

#include "core/Calendar.h"
#include "core/ClockSource.h"
#include "core/ZoneTable.h"

namespace zonara {

namespace {

std::int32_t comparisonKey(const ZoneTime& t) {
    return ((t.month * 100 + t.day) * 100 + t.hour) * 100 + t.minute;
}

} // namespace

void ZoneTime::setUtc(const SystemTime& utc) {
    day = utc.day;
    weekday = utc.dayOfWeek;
    month = utc.month;
    year = utc.year;
    hour = utc.hour;
    minute = utc.minute;
    second = utc.second;
}

void ZoneTime::SetUtcNow(const ClockSource& clock) {
    setUtc(clock.utcNow());
}

SystemTime ZoneTime::ToSystemTime() const {
    SystemTime t;
    t.year = year;
    t.month = month;
    t.dayOfWeek = weekday;
    t.day = day;
    t.hour = hour;
    t.minute = minute;
    t.second = second;
    t.milliseconds = 0;
    return t;
}

void ZoneTime::NextDay() {
    if (++day > daysInMonth(month, year)) {
        day = 1;
        if (++month > 12) {
            month = 1;
            ++year;
        }
    }
    weekday = weekday == 6 ? 0 : weekday + 1;
}

void ZoneTime::PreviousDay() {
    if (--day < 1) {
        if (--month < 1) {
            month = 12;
            --year;
        }
        day = daysInMonth(month, year);
    }
    weekday = weekday == 0 ? 6 : weekday - 1;
}

void ZoneTime::AddMinutes(std::int32_t n) {
    std::int32_t hours = n / 60;
    minute += n - 60 * hours;
    if (minute >= 60) {
        minute -= 60;
        ++hours;
    }
    hour += hours;
    if (hour > 23) {
        hour -= 24;
        NextDay();
    }
}

void ZoneTime::SubtractMinutes(std::int32_t n) {
    std::int32_t hours = n / 60;
    minute -= n - 60 * hours;
    if (minute < 0) {
        minute += 60;
        ++hours;
    }
    hour -= hours;
    if (hour < 0) {
        hour += 24;
        PreviousDay();
    }
}

void ZoneTime::ResolveRule(std::string_view text, std::int32_t forYear) {
    ResolveRule(readRuleText(text), forYear);
}

void ZoneTime::ResolveRule(const RuleMoment& moment, std::int32_t forYear) {
    using Form = RuleMoment::Form;
    year = forYear;
    month = moment.month;
    hour = moment.hour;
    minute = moment.minute;
    if (moment.form == Form::Fixed || moment.after) {
        day = moment.day;
    } else {
        day = moment.form == Form::Last ? daysInMonth(month, year) : 1;
    }
    weekday = weekdayOf(year, month, day);
    if (moment.form == Form::Fixed) {
        return;
    }
    // At most six steps; they may cross into the next or previous month.
    while (weekday != moment.weekday) {
        if (moment.form == Form::Last) {
            PreviousDay();
        } else {
            NextDay();
        }
    }
}

void ZoneTime::ApplyZone(const DstRuleList& rules) {
    const std::int32_t offset = zoneRow(timeZoneIndex).offsetMinutes;
    if (offset > 0) {
        AddMinutes(offset);
    } else if (offset < 0) {
        SubtractMinutes(-offset);
    }

    if (dstRuleIndex == 0) {
        dstState = -1;
        return;
    }
    if (dstRuleIndex < 0 || std::size_t(dstRuleIndex) > rules.size()) {
        dstState = 0;
        return;
    }
    const DstRule& rule = rules[std::size_t(dstRuleIndex) - 1];
    ZoneTime start = *this;
    ZoneTime end = *this;
    start.ResolveRule(rule.start, year);
    end.ResolveRule(rule.end, year);

    // Both bounds are inclusive and both are local standard time; only the
    // months decide whether the period spans the turn of the year.
    const std::int32_t now = comparisonKey(*this);
    const std::int32_t from = comparisonKey(start);
    const std::int32_t to = comparisonKey(end);
    const bool inForce =
        start.month > end.month ? (now >= from || now <= to) : (from <= now && now <= to);
    if (inForce) {
        AddMinutes(60);
        dstState = 1;
    } else {
        dstState = 0;
    }
}

} // namespace zonara

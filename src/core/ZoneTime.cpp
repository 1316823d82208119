#include "core/ZoneTime.h"

#include <array>

#include "core/Calendar.h"
#include "core/ClockSource.h"
#include "core/ZoneTable.h"

namespace zonara {

namespace {

constexpr std::array<std::string_view, 7> weekdayNames = {"Sun", "Mon", "Tue", "Wed",
                                                          "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

// Text past the end reads as nothing, so a short rule cannot read out of bounds.
std::string_view piece(std::string_view text, std::size_t at, std::size_t length) {
    return at < text.size() ? text.substr(at, length) : std::string_view();
}

// At most two characters; a non-digit ends the number.
std::int32_t twoDigits(std::string_view text, std::size_t at) {
    std::int32_t value = 0;
    for (const char c : piece(text, at, 2)) {
        if (c < '0' || c > '9') {
            break;
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

// Anything that is not a weekday's three letters counts as Sunday.
std::int32_t weekdayAt(std::string_view text, std::size_t at) {
    const std::string_view name = piece(text, at, 3);
    for (std::size_t i = 0; i < weekdayNames.size(); ++i) {
        if (name == weekdayNames[i]) {
            return std::int32_t(i);
        }
    }
    return 0;
}

// 0 for anything that is not a month's three letters.
std::int32_t monthAt(std::string_view text, std::size_t at) {
    const std::string_view name = piece(text, at, 3);
    for (std::size_t i = 0; i < monthNames.size(); ++i) {
        if (name == monthNames[i]) {
            return std::int32_t(i + 1);
        }
    }
    return 0;
}

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
    enum class Form { First, Last, Fixed };
    year = forYear;
    Form form = Form::Fixed;
    std::size_t rest = 2;
    std::int32_t ruleWeekday = 0;
    if (piece(text, 0, 5) == "First") {
        form = Form::First;
        ruleWeekday = weekdayAt(text, 5);
        rest = 8;
    } else if (piece(text, 0, 4) == "Last") {
        form = Form::Last;
        ruleWeekday = weekdayAt(text, 4);
        rest = 7;
    } else {
        day = twoDigits(text, 0);
    }

    bool after = false;
    if (form != Form::Fixed && piece(text, rest, 4) == "Afte") {
        after = true;
        day = twoDigits(text, rest + 5);
        rest += 7;
    }

    month = monthAt(text, rest);
    hour = twoDigits(text, rest + 4);
    minute = text.size() > rest + 6 ? twoDigits(text, rest + 7) : 0;

    if (!after && form == Form::Last) {
        day = daysInMonth(month, year);
    } else if (!after && form == Form::First) {
        day = 1;
    }
    weekday = weekdayOf(year, month, day);
    if (form == Form::Fixed) {
        return;
    }
    // At most six steps; they may cross into the next or previous month.
    while (weekday != ruleWeekday) {
        if (form == Form::Last) {
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
    start.ResolveRule(rule.startText, year);
    end.ResolveRule(rule.endText, year);

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

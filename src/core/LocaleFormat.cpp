#include "core/LocaleFormat.h"

#include <array>

#include "core/Calendar.h"

namespace zonara {

namespace {

constexpr std::array<std::string_view, 7> dayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                      "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> monthNames = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

std::string number(std::int32_t value, std::size_t minDigits) {
    std::string digits = std::to_string(value < 0 ? -value : value);
    if (digits.size() < minDigits) {
        digits.insert(0, minDigits - digits.size(), '0');
    }
    return value < 0 ? "-" + digits : digits;
}

// How many times the character at `i` repeats, from `i` on.
std::size_t runLength(std::string_view picture, std::size_t i) {
    std::size_t n = 1;
    while (i + n < picture.size() && picture[i + n] == picture[i]) {
        ++n;
    }
    return n;
}

// Copies a 'quoted' literal; '' inside quotes is a single quote. Returns the
// index after the closing quote (or the end).
std::size_t copyQuoted(std::string_view picture, std::size_t i, std::string& out) {
    ++i;
    while (i < picture.size()) {
        if (picture[i] == '\'') {
            if (i + 1 < picture.size() && picture[i + 1] == '\'') {
                out += '\'';
                i += 2;
                continue;
            }
            return i + 1;
        }
        out += picture[i++];
    }
    return i;
}

constexpr std::string_view shortDatePicture = "M/d/yyyy";
constexpr std::string_view longDatePicture = "dddd, MMMM dd, yyyy";

} // namespace

std::string expandTimePicture(const ZoneTime& t, std::string_view picture, std::string_view am,
                              std::string_view pm) {
    std::string out;
    for (std::size_t i = 0; i < picture.size();) {
        const char c = picture[i];
        if (c == '\'') {
            i = copyQuoted(picture, i, out);
            continue;
        }
        const std::size_t n = runLength(picture, i);
        const std::size_t width = n >= 2 ? 2 : 1;
        switch (c) {
        case 'h': {
            const std::int32_t h12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
            out += number(h12, width);
            break;
        }
        case 'H':
            out += number(t.hour, width);
            break;
        case 'm':
            out += number(t.minute, width);
            break;
        case 's':
            out += number(t.second, width);
            break;
        case 't': {
            const std::string_view designator = t.hour < 12 ? am : pm;
            out += n == 1 ? designator.substr(0, 1) : designator;
            break;
        }
        default:
            out.append(n, c);
            break;
        }
        i += n;
    }
    return out;
}

std::string expandDatePicture(const ZoneTime& t, std::string_view picture) {
    std::string out;
    for (std::size_t i = 0; i < picture.size();) {
        const char c = picture[i];
        if (c == '\'') {
            i = copyQuoted(picture, i, out);
            continue;
        }
        const std::size_t n = runLength(picture, i);
        switch (c) {
        case 'd':
            if (n <= 2) {
                out += number(t.day, n);
            } else {
                const std::string_view name = dayNames[std::size_t(t.weekday)];
                out += n == 3 ? name.substr(0, 3) : name;
            }
            break;
        case 'M':
            if (n <= 2) {
                out += number(t.month, n);
            } else {
                const std::string_view name = monthNames[std::size_t(t.month - 1)];
                out += n == 3 ? name.substr(0, 3) : name;
            }
            break;
        case 'y':
            out += n <= 2 ? number(t.year % 100, n) : number(t.year, 4);
            break;
        default:
            out.append(n, c);
            break;
        }
        i += n;
    }
    return out;
}

std::string EnglishLocale::formatTime(const ZoneTime& t, std::string_view picture) const {
    return expandTimePicture(t, picture, amDesignator(), pmDesignator());
}

std::string EnglishLocale::formatDate(const ZoneTime& t, unsigned flags) const {
    if (t.weekday < 0 || t.weekday > 6 || t.month < 1 || t.month > 12 || t.day < 1 ||
        t.day > daysInMonth(t.month, t.year)) {
        return {};
    }
    return expandDatePicture(t, (flags & DateLong) != 0 ? longDatePicture : shortDatePicture);
}

const LocaleFormat& englishLocale() {
    static const EnglishLocale locale;
    return locale;
}

std::string formatTime12(const ZoneTime& t, const LocaleFormat& locale) {
    return locale.formatTime(t, "hh':'mm");
}

std::string formatTimeWith(const ZoneTime& t, std::string_view picture,
                           const LocaleFormat& locale) {
    return locale.formatTime(t, picture);
}

std::string formatAmPm(const ZoneTime& t, const LocaleFormat& locale) {
    return locale.formatTime(t, "tt");
}

std::string formatDate(const ZoneTime& t, unsigned flags, const LocaleFormat& locale) {
    std::string text = locale.formatDate(t, flags);
    if (text.empty()) {
        ZoneTime retry = t;
        retry.weekday = 0;
        text = locale.formatDate(retry, flags);
    }
    return text;
}

std::string formatClockTime(const ZoneTime& t, bool use24Hour, const LocaleFormat& locale) {
    return use24Hour ? formatTimeWith(t, "HH':'mm", locale) : formatTime12(t, locale);
}

} // namespace zonara

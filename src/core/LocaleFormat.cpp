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

// Walks a picture: quoted literals are copied, and each run of one letter is
// handed to `field` with its length; a run it does not know is copied as is.
template <typename Field> std::string expandPicture(std::string_view picture, Field field) {
    std::string out;
    for (std::size_t i = 0; i < picture.size();) {
        const char c = picture[i];
        if (c == '\'') {
            i = copyQuoted(picture, i, out);
            continue;
        }
        const std::size_t n = runLength(picture, i);
        if (!field(c, n, out)) {
            out.append(n, c);
        }
        i += n;
    }
    return out;
}

// A name from a table by a 0-based index, cut to three letters for a run of
// three; nothing for an index outside the table.
template <std::size_t N>
std::string_view nameOf(const std::array<std::string_view, N>& names, std::int32_t index,
                        std::size_t run) {
    if (index < 0 || std::size_t(index) >= N) {
        return {};
    }
    const std::string_view name = names[std::size_t(index)];
    return run == 3 ? name.substr(0, 3) : name;
}

} // namespace

std::string expandTimePicture(const ZoneTime& t, std::string_view picture, std::string_view am,
                              std::string_view pm) {
    return expandPicture(picture, [&](char c, std::size_t n, std::string& out) {
        const std::size_t width = n >= 2 ? 2 : 1;
        switch (c) {
        case 'h':
            out += number(t.hour % 12 == 0 ? 12 : t.hour % 12, width);
            return true;
        case 'H':
            out += number(t.hour, width);
            return true;
        case 'm':
            out += number(t.minute, width);
            return true;
        case 's':
            out += number(t.second, width);
            return true;
        case 't': {
            const std::string_view designator = t.hour < 12 ? am : pm;
            out += n == 1 ? designator.substr(0, 1) : designator;
            return true;
        }
        default:
            return false;
        }
    });
}

std::string expandDatePicture(const ZoneTime& t, std::string_view picture) {
    return expandPicture(picture, [&](char c, std::size_t n, std::string& out) {
        switch (c) {
        case 'd':
            out += n <= 2 ? number(t.day, n) : std::string(nameOf(dayNames, t.weekday, n));
            return true;
        case 'M':
            out += n <= 2 ? number(t.month, n) : std::string(nameOf(monthNames, t.month - 1, n));
            return true;
        case 'y':
            out += n <= 2 ? number(t.year % 100, n) : number(t.year, 4);
            return true;
        default:
            return false;
        }
    });
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

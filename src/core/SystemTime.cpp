#include "core/SystemTime.h"

#include <charconv>

#include "core/Calendar.h"

namespace zonara {

namespace {

// Days since 1970-01-01 of a civil date, and back (proleptic Gregorian).
std::int64_t daysFromCivil(std::int64_t y, std::int64_t m, std::int64_t d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yoe = y - era * 400;                                   // [0, 399]
    const std::int64_t doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1; // [0, 365]
    const std::int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;           // [0, 146096]
    return era * 146097 + doe - 719468;
}

void civilFromDays(std::int64_t z, std::int32_t& y, std::int32_t& m, std::int32_t& d) {
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const std::int64_t doe = z - era * 146097;                                      // [0, 146096]
    const std::int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365; // [0, 399]
    const std::int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);               // [0, 365]
    const std::int64_t mp = (5 * doy + 2) / 153;                                    // [0, 11]
    d = std::int32_t(doy - (153 * mp + 2) / 5 + 1);                                 // [1, 31]
    m = std::int32_t(mp < 10 ? mp + 3 : mp - 9);                                    // [1, 12]
    y = std::int32_t(yoe + era * 400 + (m <= 2));
}

bool readNumber(std::string_view text, std::size_t at, std::size_t width, std::int32_t& value) {
    if (at + width > text.size()) {
        return false;
    }
    const char* first = text.data() + at;
    const char* last = first + width;
    for (const char* p = first; p != last; ++p) {
        if (*p < '0' || *p > '9') {
            return false;
        }
    }
    return std::from_chars(first, last, value).ec == std::errc{};
}

bool validDate(std::int32_t y, std::int32_t m, std::int32_t d) {
    return y >= 1601 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= daysInMonth(m, y);
}

} // namespace

SystemTime systemTimeFromUnix(std::int64_t seconds) {
    std::int64_t days = seconds / 86400;
    std::int64_t rest = seconds % 86400;
    if (rest < 0) {
        rest += 86400;
        --days;
    }
    SystemTime t;
    civilFromDays(days, t.year, t.month, t.day);
    t.dayOfWeek = std::int32_t((days % 7 + 7 + 4) % 7); // 1970-01-01 was a Thursday
    t.hour = std::int32_t(rest / 3600);
    t.minute = std::int32_t(rest / 60 % 60);
    t.second = std::int32_t(rest % 60);
    return t;
}

std::int64_t unixFromSystemTime(const SystemTime& t) {
    return daysFromCivil(t.year, t.month, t.day) * 86400 + t.hour * 3600 + t.minute * 60 + t.second;
}

std::optional<SystemTime> parseIsoDate(std::string_view text) {
    std::int32_t y = 0, m = 0, d = 0;
    if (text.size() != 10 || text[4] != '-' || text[7] != '-' || !readNumber(text, 0, 4, y) ||
        !readNumber(text, 5, 2, m) || !readNumber(text, 8, 2, d) || !validDate(y, m, d)) {
        return std::nullopt;
    }
    return systemTimeFromUnix(daysFromCivil(y, m, d) * 86400);
}

std::optional<SystemTime> parseIsoUtc(std::string_view text) {
    if (!text.empty() && (text.back() == 'Z' || text.back() == 'z')) {
        text.remove_suffix(1);
    }
    if (text.size() != 19 || (text[10] != 'T' && text[10] != 't' && text[10] != ' ') ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    const auto date = parseIsoDate(text.substr(0, 10));
    std::int32_t h = 0, mi = 0, s = 0;
    if (!date || !readNumber(text, 11, 2, h) || !readNumber(text, 14, 2, mi) ||
        !readNumber(text, 17, 2, s) || h > 23 || mi > 59 || s > 59) {
        return std::nullopt;
    }
    return systemTimeFromUnix(unixFromSystemTime(*date) + h * 3600 + mi * 60 + s);
}

} // namespace zonara

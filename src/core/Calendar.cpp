#include "core/Calendar.h"

namespace zonara {

bool isLeapYear(std::int32_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

std::int32_t daysInMonth(std::int32_t month, std::int32_t year) {
    switch (month) {
    case 2:
        return isLeapYear(year) ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
        return 31;
    default:
        return 0;
    }
}

std::int32_t dayNumber(std::int32_t year, std::int32_t month, std::int32_t day) {
    const std::int32_t a = month <= 2 ? 1 : 0;
    const std::int32_t y = year - a;
    const std::int32_t c = y / 100;
    const std::int32_t m = month <= 2 ? month + 9 : month - 3; // [0, 11], March first
    return (153 * m + 2) / 5 + ((y - 100 * c) * 1461) / 4 + (146097 * c) / 4 + day + 1721119;
}

std::int32_t weekdayOf(std::int32_t year, std::int32_t month, std::int32_t day) {
    const std::int32_t w = dayNumber(year, month, day) % 7 + 1; // [1, 7], 7 is Sunday
    return w == 7 ? 0 : w;
}

} // namespace zonara

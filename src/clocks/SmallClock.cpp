#include "clocks/SmallClock.h"

#include <algorithm>
#include <cstdlib>

#include "core/Calendar.h"
#include "core/Text.h"
#include "globe/SunAltitude.h"

namespace zonara {

namespace {

constexpr std::string_view minusSign = "\u2212";

ZoneTime localTimeOf(const ClockSlot& city, const SystemTime& utc, const DstRuleList& rules) {
    ZoneTime local;
    local.setUtc(utc);
    local.timeZoneIndex = city.timeZoneIndex;
    local.dstRuleIndex = city.dstRuleIndex;
    local.ApplyZone(rules);
    return local;
}

PixelPoint handTip(PixelPoint centre, int index, int length) {
    const HandDirection& d = handTable[std::size_t(index)];
    return {centre.x + d.dx * length / 8000, centre.y + d.dy * length / 8000};
}

} // namespace

std::string SmallClockTexts::differenceLine() const {
    if (dayShift.empty()) {
        return difference;
    }
    if (difference.empty()) {
        return dayShift;
    }
    std::string line = difference;
    line += ' ';
    line += dayShift;
    return line;
}

int daysBetween(const ZoneTime& from, const ZoneTime& to) {
    return dayNumber(to.year, to.month, to.day) - dayNumber(from.year, from.month, from.day);
}

int minutesBetween(const ZoneTime& from, const ZoneTime& to) {
    return daysBetween(from, to) * 1440 + (to.hour - from.hour) * 60 + (to.minute - from.minute);
}

std::string differenceText(int minutes) {
    if (minutes == 0) {
        return "0";
    }
    std::string text(minutes > 0 ? std::string_view("+") : minusSign);
    const int magnitude = std::abs(minutes);
    text += std::to_string(magnitude / 60);
    if (magnitude % 60 != 0) {
        const int rest = magnitude % 60;
        text += rest < 10 ? ":0" : ":";
        text += std::to_string(rest);
    }
    return text;
}

std::string dayShiftText(int days) {
    if (days == 1) {
        return std::string(tomorrowText);
    }
    if (days == -1) {
        return std::string(yesterdayText);
    }
    if (days == 0) {
        return {};
    }
    std::string text(days > 0 ? std::string_view("+") : minusSign);
    text += std::to_string(std::abs(days));
    text += " days";
    return text;
}

SmallClockState smallClockState(const ClockSlot& city, const ClockSlot* reference,
                                const SystemTime& utc, const DstRuleList& rules, bool use24Hour,
                                const LocaleFormat& locale) {
    SmallClockState state;
    state.local = localTimeOf(city, utc, rules);
    SmallClockTexts& texts = state.texts;
    texts.name = toUtf8(city.cityName);
    texts.time = formatClockTime(state.local, use24Hour, locale);
    // Without a field of its own for it, the 12-hour time carries its AM or PM.
    if (!use24Hour) {
        texts.time += ' ';
        texts.time += formatAmPm(state.local, locale);
    }
    texts.date = formatDate(state.local, DateShort, locale);
    texts.sunUp = sunIsUp(utc, city.longitude, city.latitude);
    if (reference) {
        const ZoneTime there = localTimeOf(*reference, utc, rules);
        texts.difference = differenceText(minutesBetween(there, state.local));
        texts.dayShift = dayShiftText(daysBetween(there, state.local));
    }
    return state;
}

SmallClockHands smallClockHands(PixelPoint centre, int radius, const ZoneTime& local) {
    SmallClockHands hands;
    const int hourIndex = hourHandIndex(local.hour % 12, local.minute);
    hands.hour = {centre, handTip(centre, hourIndex % 60, radius * 55 / 100)};
    hands.minute = {centre, handTip(centre, local.minute % 60, radius * 85 / 100)};
    hands.second = {centre, handTip(centre, local.second % 60, radius * 90 / 100)};
    hands.hourWidth = std::max(2, radius / 10);
    hands.minuteWidth = std::max(1, radius / 15);
    return hands;
}

} // namespace zonara

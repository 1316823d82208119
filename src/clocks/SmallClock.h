#pragma once
// A small clock's content for one city at one instant: texts, day or night, and hands.

#include <string>
#include <string_view>

#include "clocks/AnalogueClock.h"
#include "controls/ColorRef.h"
#include "core/ClockSlot.h"
#include "core/DstRule.h"
#include "core/LocaleFormat.h"
#include "core/SystemTime.h"
#include "core/ZoneTime.h"

namespace zonara {

// The colours the face pictures are drawn for: their corners are the background.
inline constexpr ColorRef smallClockBackground = rgb(20, 28, 44);
inline constexpr ColorRef smallClockText = rgb(255, 255, 255);
inline constexpr ColorRef smallClockDimText = rgb(190, 200, 215);
inline constexpr ColorRef smallClockDifferenceText = rgb(255, 190, 80);
inline constexpr ColorRef smallClockSelection = rgb(255, 165, 30);
inline constexpr ColorRef smallClockHourHand = rgb(30, 34, 44);
inline constexpr ColorRef smallClockMinuteHand = rgb(30, 34, 44);
inline constexpr ColorRef smallClockSecondHand = rgb(200, 30, 30);

inline constexpr std::string_view tomorrowText = "tomorrow";
inline constexpr std::string_view yesterdayText = "yesterday";

struct SmallClockTexts {
    std::string name;
    std::string time; // "HH:mm", or the 12-hour time with its AM or PM
    std::string date;
    // To the reference city: "+5:30", "\u22128", "0"; empty on the reference's own clock.
    std::string difference;
    // "tomorrow" or "yesterday" when the local date is a day after or before the
    // reference's, "+2 days" and the like for two; else empty.
    std::string dayShift;
    bool sunUp = false;

    // The difference and the day shift on one line: "+9 tomorrow".
    std::string differenceLine() const;

    friend bool operator==(const SmallClockTexts&, const SmallClockTexts&) = default;
};

struct SmallClockState {
    SmallClockTexts texts;
    ZoneTime local; // the city's local time, for the hands
};

// Minutes from one local time to another, counting whole dates.
int minutesBetween(const ZoneTime& from, const ZoneTime& to);
// Calendar days from one local date to another.
int daysBetween(const ZoneTime& from, const ZoneTime& to);

// "0", "+8", "\u22128", "+5:30", "\u22123:30" (a real minus sign).
std::string differenceText(int minutes);
std::string dayShiftText(int days);

// The clock of `city` at the UTC instant. A null reference means this clock is the
// reference itself (the globe's strip shows the selected city), so no difference is shown.
SmallClockState smallClockState(const ClockSlot& city, const ClockSlot* reference,
                                const SystemTime& utc, const DstRuleList& rules, bool use24Hour,
                                const LocaleFormat& locale = englishLocale());

struct SmallClockHands {
    LineSegment hour;
    LineSegment minute;
    LineSegment second;
    int hourWidth = 1;
    int minuteWidth = 1;
    friend bool operator==(const SmallClockHands&, const SmallClockHands&) = default;
};

// Hour hand at 55 % of the radius, minute hand 85 %, second hand 90 %, pointing along the
// minute marks of the analogue clock's table; the hour hand moves on every 12 minutes.
SmallClockHands smallClockHands(PixelPoint centre, int radius, const ZoneTime& local);

} // namespace zonara

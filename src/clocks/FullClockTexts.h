#pragma once
// The full clock's field texts for one city at one UTC instant, and its moon phase.

#include <array>
#include <string>

#include "clocks/SkinScheme.h"
#include "core/ClockSlot.h"
#include "core/DstRule.h"
#include "core/LocaleFormat.h"
#include "core/SystemTime.h"
#include "core/ZoneTime.h"

namespace zonara {

// Slots of the text fields, in textFieldNames order.
enum FieldSlot : std::size_t {
    CountrySlot,
    CitySlot,
    TimeSlot,
    DateSlot,
    AirportCodeSlot,
    DialCodeSlot,
    GmtOffsetSlot,
    ZoneDescriptionSlot,
    DaylightSavingSlot,
    SunriseSlot,
    SunsetSlot,
    AmPmSlot,
    InternetTimeSlot,
};

// The three fields whose text depends on their style; true is the short form.
struct FullClockStyles {
    bool shortDate = true;
    bool shortOffset = true;
    bool shortDaylightSaving = true;
};

// The styles as a skin's fields give them.
FullClockStyles stylesOf(const std::array<TextField, textFieldCount>& fields);

struct FullClockTexts {
    std::array<std::string, textFieldCount> texts;
    ZoneTime local; // the city's local time, with its daylight-saving state
};

// Internet time in beats: an hour is added to UTC and the seconds do not
// count, so 23:59:59 UTC gives "@040".
std::string internetTimeText(const SystemTime& utc);

// Every field's text for the city at the UTC instant.
FullClockTexts fullClockTexts(const ClockSlot& city, const SystemTime& utc,
                              const DstRuleList& rules, bool use24Hour,
                              const FullClockStyles& styles,
                              const LocaleFormat& locale = englishLocale());

// The moon-phase picture's index (0 new moon ... 4 full moon ... 7) for the
// city's local date.
int fullClockMoonPhase(const ZoneTime& local);

} // namespace zonara

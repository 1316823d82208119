#pragma once
// What the city details show: the city's two name lines and its label/value rows.

#include <string>
#include <string_view>
#include <vector>

#include "core/ClockSlot.h"
#include "core/DstRule.h"
#include "core/LocaleFormat.h"
#include "core/SystemTime.h"

namespace zonara {

// In display order; the two daylight-saving dates only for a city with a rule.
enum class DetailsRowId {
    AirportCode,
    Icao,
    DialPrefix,
    GmtOffset,
    Dst,
    DstStarts,
    DstEnds,
    Longitude,
    Latitude,
    Sunrise,
    Sunset,
};

struct DetailsRow {
    DetailsRowId id;
    std::string value;
};

struct CityDetails {
    std::string cityName;
    std::string countryName;
    std::vector<DetailsRow> rows;
};

// The English label, as the string table has it ("Airport Code", "GMT offset" ...).
std::string_view detailsLabel(DetailsRowId id);

// The city's details at a UTC instant. The daylight-saving period is the one
// that starts in the city's current local year, its end in the following year
// for a rule that spans the turn of the year; each end is shown as the short
// date and the wall-clock time at which the clocks change. A rule number the
// rule list does not have leaves both dates empty. Sunrise and sunset are
// those of the UTC date, in the city's local time ("HH:mm"), or the full
// clock's texts for a day without them.
CityDetails cityDetails(const ClockSlot& city, const SystemTime& utc, const DstRuleList& rules,
                        const LocaleFormat& locale = englishLocale());

} // namespace zonara

#include "clocks/FullClockTexts.h"

#include <cstdio>

#include "core/LocalTime.h"
#include "core/Text.h"
#include "core/ZoneTable.h"
#include "core/ZoneTexts.h"
#include "globe/MoonPhase.h"
#include "globe/SunEventText.h"
#include "globe/SunTimes.h"

namespace zonara {

FullClockStyles stylesOf(const std::array<TextField, textFieldCount>& fields) {
    return {fields[DateSlot].shortStyle, fields[GmtOffsetSlot].shortStyle,
            fields[DaylightSavingSlot].shortStyle};
}

std::string internetTimeText(const SystemTime& utc) {
    ZoneTime biel;
    biel.setUtc(utc);
    biel.AddMinutes(60);
    // 1/86.4: one beat is 86.4 seconds.
    const int beats = static_cast<int>((biel.hour * 60 + biel.minute) * 60 * 0.011574074074074073);
    char text[16];
    std::snprintf(text, sizeof text, "@%.3d", beats);
    return text;
}

FullClockTexts fullClockTexts(const ClockSlot& city, const SystemTime& utc,
                              const DstRuleList& rules, bool use24Hour,
                              const FullClockStyles& styles, const LocaleFormat& locale) {
    FullClockTexts result;
    result.local = localTime(utc, city, rules);
    const ZoneTime& local = result.local;

    const ZoneRow& zone = zoneRow(city.timeZoneIndex);
    auto& texts = result.texts;
    texts[CountrySlot] = toUtf8(city.countryName);
    texts[CitySlot] = toUtf8(city.cityName);
    texts[TimeSlot] = formatClockTime(local, use24Hour, locale);
    texts[DateSlot] = formatDate(local, styles.shortDate ? DateShort : DateLong, locale);
    texts[AirportCodeSlot] = toUtf8(city.airportCode);
    texts[DialCodeSlot] = toUtf8(city.dialCode);
    texts[GmtOffsetSlot] = styles.shortOffset ? std::string(zone.offsetText)
                                              : "GMT offset " + std::string(zone.offsetText);
    texts[ZoneDescriptionSlot] = zoneDescription(zone);
    const std::string dst = dstStateText(local.dstState);
    texts[DaylightSavingSlot] = styles.shortDaylightSaving ? dst : "Daylight Savings " + dst;

    const double longitude = city.longitude;
    const double latitude = city.latitude;
    texts[SunriseSlot] =
        sunEventText(SunriseTime(local.year, local.month, local.day, longitude, latitude), local,
                     rules, use24Hour, locale);
    texts[SunsetSlot] =
        sunEventText(SunsetTime(local.year, local.month, local.day, longitude, latitude), local,
                     rules, use24Hour, locale);
    texts[AmPmSlot] = formatAmPm(local, locale);
    texts[InternetTimeSlot] = internetTimeText(utc);
    return result;
}

int fullClockMoonPhase(const ZoneTime& local) {
    return MoonPhaseIndex(local.year, local.month, local.day);
}

} // namespace zonara

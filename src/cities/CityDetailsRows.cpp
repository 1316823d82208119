#include "cities/CityDetailsRows.h"

#include <cstdio>

#include "core/DstPeriod.h"
#include "core/Text.h"
#include "core/ZoneTable.h"
#include "core/ZoneTexts.h"
#include "globe/SunEventText.h"
#include "globe/SunTimes.h"

namespace zonara {

namespace {

std::string twoDecimals(float degrees) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", double(degrees));
    return text;
}

std::string changeText(const ZoneTime& wallClock, const LocaleFormat& locale) {
    return formatDate(wallClock, DateShort, locale) + " " +
           formatTimeWith(wallClock, "HH':'mm", locale);
}

} // namespace

std::string_view detailsLabel(DetailsRowId id) {
    switch (id) {
    case DetailsRowId::AirportCode:
        return "Airport Code";
    case DetailsRowId::Icao:
        return "ICAO";
    case DetailsRowId::DialPrefix:
        return "Dial Prefix";
    case DetailsRowId::GmtOffset:
        return "GMT offset";
    case DetailsRowId::Dst:
        return "DST";
    case DetailsRowId::DstStarts:
        return "DST Starts";
    case DetailsRowId::DstEnds:
        return "DST Ends";
    case DetailsRowId::Longitude:
        return "Longitude";
    case DetailsRowId::Latitude:
        return "Latitude";
    case DetailsRowId::Sunrise:
        return "Sunrise";
    case DetailsRowId::Sunset:
        return "Sunset";
    }
    return {};
}

CityDetails cityDetails(const ClockSlot& city, const SystemTime& utc, const DstRuleList& rules,
                        const LocaleFormat& locale) {
    CityDetails details;
    details.cityName = toUtf8(city.cityName);
    details.countryName = toUtf8(city.countryName);

    ZoneTime today;
    today.setUtc(utc);
    today.timeZoneIndex = city.timeZoneIndex;
    today.dstRuleIndex = city.dstRuleIndex;
    ZoneTime local = today;
    local.ApplyZone(rules);

    auto& rows = details.rows;
    rows.push_back({DetailsRowId::AirportCode, toUtf8(city.airportCode)});
    rows.push_back({DetailsRowId::Icao, toUtf8(city.stationCode)});
    rows.push_back({DetailsRowId::DialPrefix, toUtf8(city.dialCode)});
    rows.push_back({DetailsRowId::GmtOffset, std::string(zoneRow(city.timeZoneIndex).offsetText)});
    rows.push_back({DetailsRowId::Dst, dstStateText(local.dstState)});
    if (city.dstRuleIndex != 0) {
        const auto period = dstPeriod(rules, city.dstRuleIndex, local.year);
        rows.push_back({DetailsRowId::DstStarts,
                        period ? changeText(clocksForwardAt(*period), locale) : std::string()});
        rows.push_back({DetailsRowId::DstEnds,
                        period ? changeText(clocksBackAt(*period), locale) : std::string()});
    }
    rows.push_back({DetailsRowId::Longitude, twoDecimals(city.longitude)});
    rows.push_back({DetailsRowId::Latitude, twoDecimals(city.latitude)});

    const double longitude = city.longitude;
    const double latitude = city.latitude;
    rows.push_back({DetailsRowId::Sunrise,
                    sunEventText(SunriseTime(utc.year, utc.month, utc.day, longitude, latitude),
                                 today, rules, true, locale)});
    rows.push_back({DetailsRowId::Sunset,
                    sunEventText(SunsetTime(utc.year, utc.month, utc.day, longitude, latitude),
                                 today, rules, true, locale)});
    return details;
}

} // namespace zonara

#include "app/ClockRows.h"

#include <cstdio>

#include "core/LocaleFormat.h"
#include "core/ZoneTable.h"
#include "core/ZoneTexts.h"
#include "core/ZoneTime.h"

namespace zonara {

namespace {

std::string isoDate(const ZoneTime& t) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", t.year % 10000, t.month % 100, t.day % 100);
    return text;
}

std::string isoTime(const ZoneTime& t) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", t.hour % 100, t.minute % 100,
                  t.second % 100);
    return text;
}

} // namespace

std::vector<std::string> clockRowHeader() {
    return {"Slot", "City", "Country", "Date", "Time", "Offset", "DST", "Zone"};
}

std::vector<std::string> clockRow(const ClockRowInput& input, const SystemTime& utc,
                                  const DstRuleList& rules, bool use24Hour, bool tsv) {
    ZoneTime local;
    local.setUtc(utc);
    local.timeZoneIndex = input.timeZoneIndex;
    local.dstRuleIndex = input.dstRuleIndex;
    local.ApplyZone(rules);
    const ZoneRow& zone = zoneRow(input.timeZoneIndex);

    if (tsv) {
        return {input.slot,
                input.city,
                input.country,
                isoDate(local),
                isoTime(local),
                std::to_string(local.weekday),
                std::string(zone.offsetText),
                std::to_string(local.dstState),
                std::string(zone.name)};
    }
    std::string time = formatClockTime(local, use24Hour);
    if (!use24Hour) {
        time += ' ';
        time += formatAmPm(local);
    }
    return {input.slot,
            input.city,
            input.country,
            expandDatePicture(local, "ddd") + " " + formatDate(local, DateShort),
            time,
            std::string(zone.offsetText),
            dstStateText(local.dstState),
            zoneDescription(zone)};
}

} // namespace zonara

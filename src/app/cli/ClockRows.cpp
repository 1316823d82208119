#include "app/cli/ClockRows.h"

#include "app/cli/TablePrinter.h"
#include "core/LocalTime.h"
#include "core/LocaleFormat.h"
#include "core/ZoneTable.h"
#include "core/ZoneTexts.h"

namespace zonara {

std::vector<std::string> clockRowHeader() {
    return {"Slot", "City", "Country", "Date", "Time", "Offset", "DST", "Zone"};
}

std::vector<std::string> clockRow(const ClockRowInput& input, const SystemTime& utc,
                                  const DstRuleList& rules, bool use24Hour, bool tsv) {
    const ZoneTime local = localTime(utc, input.timeZoneIndex, input.dstRuleIndex, rules);
    const ZoneRow& zone = zoneRow(input.timeZoneIndex);

    if (tsv) {
        return {input.slot,
                input.city,
                input.country,
                isoDate(local.year, local.month, local.day),
                isoTime(local.hour, local.minute, local.second),
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

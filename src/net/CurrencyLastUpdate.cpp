#include "net/CurrencyLastUpdate.h"

#include <ctime>

#include "core/ZoneTime.h"

namespace zonara {

std::int32_t systemUtcOffsetMinutes(const SystemTime& utc) {
    const std::time_t at = std::time_t(unixFromSystemTime(utc));
    std::tm local{};
    if (localtime_r(&at, &local) == nullptr) {
        return 0;
    }
    return std::int32_t(local.tm_gmtoff / 60);
}

std::string formatLastUpdate(const SystemTime& utc, std::int32_t utcOffsetMinutes,
                             const LocaleFormat& locale) {
    ZoneTime local;
    local.setUtc(systemTimeFromUnix(unixFromSystemTime(utc) + std::int64_t(utcOffsetMinutes) * 60));
    return formatDate(local, DateShort, locale) + " " + locale.formatTime(local, "h':'mm tt");
}

} // namespace zonara

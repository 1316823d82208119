#pragma once
// The date and time text a rates refresh stores as its last update.

#include <cstdint>
#include <string>

#include "core/LocaleFormat.h"
#include "core/SystemTime.h"

namespace zonara {

// The machine's offset from UTC at that instant, in minutes east.
std::int32_t systemUtcOffsetMinutes(const SystemTime& utc);

// The local date and time of the refresh in the locale's short date and a
// 12-hour time, "3/14/2025 9:05 AM" in English.
std::string formatLastUpdate(const SystemTime& utc, std::int32_t utcOffsetMinutes,
                             const LocaleFormat& locale = englishLocale());

} // namespace zonara

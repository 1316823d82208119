#pragma once
// A UTC instant broken down as the system clock reports it.

#include <cstdint>
#include <optional>
#include <string_view>

namespace zonara {

struct SystemTime {
    std::int32_t year = 1970;
    std::int32_t month = 1;     // [1, 12]
    std::int32_t dayOfWeek = 4; // 0 Sunday ... 6 Saturday
    std::int32_t day = 1;       // [1, 31]
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;
    std::int32_t milliseconds = 0;

    friend bool operator==(const SystemTime&, const SystemTime&) = default;
};

// Seconds since 1970-01-01T00:00:00Z, both ways.
SystemTime systemTimeFromUnix(std::int64_t seconds);
std::int64_t unixFromSystemTime(const SystemTime& t);

// "YYYY-MM-DDTHH:MM:SSZ" (the Z may be left out); nothing for anything else.
std::optional<SystemTime> parseIsoUtc(std::string_view text);
// "YYYY-MM-DD"; nothing for anything else, including impossible dates.
std::optional<SystemTime> parseIsoDate(std::string_view text);

} // namespace zonara

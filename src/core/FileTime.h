#pragma once
// File modification times as 100-ns ticks since 1601-01-01 UTC.

#include <cstdint>
#include <filesystem>
#include <optional>

namespace zonara {

std::optional<std::uint64_t> fileTimeOf(const std::filesystem::path& file);
// 100-ns ticks since 1601 to seconds since 1970, and back.
std::int64_t unixFromFileTime(std::uint64_t ticks);
std::uint64_t fileTimeFromUnix(std::int64_t seconds, std::uint32_t nanoseconds = 0);

} // namespace zonara

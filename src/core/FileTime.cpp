#include "core/FileTime.h"

#include <sys/stat.h>

namespace zonara {

namespace {
// 100-ns ticks from 1601-01-01 to 1970-01-01.
constexpr std::uint64_t ticksTo1970 = 116444736000000000ULL;
constexpr std::uint64_t ticksPerSecond = 10000000ULL;
} // namespace

std::optional<std::uint64_t> fileTimeOf(const std::filesystem::path& file) {
    struct stat info {};
    if (::stat(file.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return std::nullopt;
    }
    return fileTimeFromUnix(info.st_mtim.tv_sec, std::uint32_t(info.st_mtim.tv_nsec));
}

std::int64_t unixFromFileTime(std::uint64_t ticks) {
    return (std::int64_t(ticks) - std::int64_t(ticksTo1970)) / std::int64_t(ticksPerSecond);
}

std::uint64_t fileTimeFromUnix(std::int64_t seconds, std::uint32_t nanoseconds) {
    return std::uint64_t(seconds) * ticksPerSecond + nanoseconds / 100 + ticksTo1970;
}

} // namespace zonara

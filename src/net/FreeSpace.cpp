#include "net/FreeSpace.h"

#include <sys/statvfs.h>

namespace zonara {

std::optional<std::uint64_t> freeSpaceOf(const std::filesystem::path& folder) {
    struct statvfs info {};
    if (statvfs(folder.c_str(), &info) != 0) {
        return std::nullopt;
    }
    return std::uint64_t(info.f_bavail) * std::uint64_t(info.f_frsize);
}

} // namespace zonara

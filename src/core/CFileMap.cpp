#include "core/CFileMap.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zonara {

CFileMap::~CFileMap() {
    Close();
}

bool CFileMap::Open(const std::filesystem::path& file) {
    Close();
    fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size <= 0) {
        Close();
        return false;
    }
    void* mapped = ::mmap(nullptr, std::size_t(info.st_size), PROT_READ, MAP_PRIVATE, fd, 0);
    if (mapped == MAP_FAILED) {
        Close();
        return false;
    }
    ::madvise(mapped, std::size_t(info.st_size), MADV_RANDOM);
    view = static_cast<const char*>(mapped);
    length = std::size_t(info.st_size);
    return true;
}

void CFileMap::Close() {
    if (view != nullptr) {
        ::munmap(const_cast<char*>(view), length);
        view = nullptr;
        length = 0;
    }
    if (fd >= 0) {
        ::close(fd);
        fd = -1;
    }
}

} // namespace zonara

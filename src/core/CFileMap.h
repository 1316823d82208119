#pragma once
// A read-only memory mapping of a whole file.

#include <cstddef>
#include <filesystem>

namespace zonara {

class CFileMap {
  public:
    CFileMap() = default;
    virtual ~CFileMap();
    CFileMap(const CFileMap&) = delete;
    CFileMap& operator=(const CFileMap&) = delete;

    // False for a file that does not open, is empty or cannot be mapped.
    bool Open(const std::filesystem::path& file);
    void Close();

    const char* data() const { return view; }
    std::size_t size() const { return length; }

  private:
    int fd = -1;
    const char* view = nullptr;
    std::size_t length = 0;
};

} // namespace zonara

#pragma once
// A temporary folder for one test, removed with everything in it on destruction.

#include <filesystem>
#include <string>
#include <string_view>

namespace zonara::test {

class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return dir; }

  private:
    std::filesystem::path dir;
};

// Writes bytes to a file, creating its folders.
void writeFile(const std::filesystem::path& file, std::string_view bytes);
// The whole file, or empty when it does not open.
std::string readFile(const std::filesystem::path& file);

} // namespace zonara::test

#pragma once
// The root folder and the names of the files under it.

#include <filesystem>
#include <string_view>

namespace zonara {

class Paths {
  public:
    Paths() = default;
    explicit Paths(std::filesystem::path root) : rootDir(std::move(root)) {}

    const std::filesystem::path& root() const { return rootDir; }
    std::filesystem::path dataDir() const { return rootDir / "Data"; }
    std::filesystem::path graphicsDir() const { return rootDir / "Graphics"; }
    std::filesystem::path dataFile(std::string_view name) const { return dataDir() / name; }
    std::filesystem::path graphicsFile(std::string_view name) const { return graphicsDir() / name; }

  private:
    std::filesystem::path rootDir;
};

} // namespace zonara

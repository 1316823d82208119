#pragma once
// Finds the root folder that holds Data/ and Graphics/.

#include <filesystem>
#include <optional>
#include <string>

namespace zonara {

struct RootChoice {
    std::filesystem::path root;
    std::string error; // empty on success
};

// --root DIR, else $ZONARA_ROOT, else the executable's folder when it holds
// Data/, else $XDG_DATA_HOME/zonara (or ~/.local/share/zonara), seeded on
// first use from the installed share/zonara beside the executable's prefix.
RootChoice resolveRoot(const std::optional<std::filesystem::path>& option,
                       const std::filesystem::path& executableDir);

std::filesystem::path executableDir();

} // namespace zonara

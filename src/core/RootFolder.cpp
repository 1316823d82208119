#include "core/RootFolder.h"

#include <cstdlib>
#include <system_error>

namespace zonara {

namespace fs = std::filesystem;

namespace {

RootChoice existingFolder(const fs::path& dir, const char* what) {
    std::error_code error;
    if (!fs::is_directory(dir, error)) {
        return {{}, std::string(what) + " '" + dir.string() + "' is not a folder"};
    }
    return {fs::absolute(dir, error), {}};
}

fs::path userDataHome() {
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg != nullptr && *xdg != '\0') {
        return fs::path(xdg);
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return fs::path(home) / ".local" / "share";
    }
    return {};
}

} // namespace

fs::path executableDir() {
    std::error_code error;
    const fs::path self = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : self.parent_path();
}

RootChoice resolveRoot(const std::optional<fs::path>& option, const fs::path& exeDir) {
    if (option) {
        return existingFolder(*option, "--root");
    }
    if (const char* env = std::getenv("ZONARA_ROOT"); env != nullptr && *env != '\0') {
        return existingFolder(env, "ZONARA_ROOT");
    }
    std::error_code error;
    if (!exeDir.empty() && fs::is_directory(exeDir / "Data", error)) {
        return {exeDir, {}};
    }

    const fs::path home = userDataHome();
    if (home.empty()) {
        return {{}, "no root folder: set --root, ZONARA_ROOT or HOME"};
    }
    const fs::path root = home / "zonara";
    if (!fs::is_directory(root / "Data", error)) {
        // First start of an installed copy: seed the user's folder from the
        // shared one, so the user's files never go into the installation.
        const fs::path shared = exeDir.parent_path() / "share" / "zonara";
        fs::create_directories(root, error);
        if (fs::is_directory(shared, error)) {
            fs::copy(shared, root, fs::copy_options::recursive | fs::copy_options::skip_existing,
                     error);
        }
        fs::create_directories(root / "Data", error);
        if (error) {
            return {{}, "cannot create the folder '" + root.string() + "': " + error.message()};
        }
    }
    return {root, {}};
}

} // namespace zonara

#include "support/ShippedFiles.h"

#include <cstdlib>
#include <system_error>

#include "core/WorldFiles.h"

namespace zonara::test {

namespace fs = std::filesystem;

fs::path sourceDir() {
    if (const char* dir = std::getenv("ZONARA_SOURCE_DIR"); dir != nullptr && *dir != '\0') {
        return dir;
    }
    return ZONARA_BUILT_FROM;
}

Paths copyShippedWorld(const fs::path& root) {
    const Paths paths(root);
    fs::create_directories(paths.dataDir());
    for (const auto name : {countryFileName, cityFileName, daylightFileName}) {
        fs::copy_file(sourceDir() / "data" / name, paths.dataFile(name),
                      fs::copy_options::overwrite_existing);
    }
    std::error_code ignored;
    fs::remove(paths.dataFile(stampFileName), ignored);
    return paths;
}

} // namespace zonara::test

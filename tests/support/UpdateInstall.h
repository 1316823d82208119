#pragma once
// An installation for the data update's tests: a small world that differs
// from everything the tests serve, and the update's files as bytes.

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "net/DataUpdate.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara::test {

// France with Paris, Japan with Tokyo, the usual rules, version "old!".
inline Paths installSmallWorld(const std::filesystem::path& root) {
    const Paths paths =
        writeWorld(root, {{"France", {sampleCity("Paris")}}, {"Japan", {sampleCity("Tokyo")}}});
    writeRules(paths);
    writeFile(paths.dataFile("version40.dat"), "old!\r\n");
    return paths;
}

// The installed version, city, daylight and country files by name.
inline std::map<std::string, std::string> installedFiles(const Paths& paths) {
    std::map<std::string, std::string> files;
    for (const UpdateFile& file : updateFiles)
        files[std::string(file.installed)] = readFile(paths.dataFile(file.installed));
    return files;
}

// What an update may leave in Data/ besides the installed files: temporary
// files and the world check's scratch folder.
inline std::vector<std::string> leftovers(const Paths& paths) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(paths.dataDir())) {
        const std::string name = entry.path().filename().string();
        if (entry.path().extension() == ".tmp" || name == "update-check")
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace zonara::test

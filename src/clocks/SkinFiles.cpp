#include "clocks/SkinFiles.h"

#include <algorithm>
#include <system_error>

namespace zonara {

std::string schemeSuffix(int width, int height) {
    std::string suffix = "_";
    suffix += std::to_string(width);
    suffix += 'x';
    suffix += std::to_string(height);
    suffix += ".xml";
    return suffix;
}

std::filesystem::path schemeFile(const Paths& paths, std::string_view skinName, int width,
                                 int height) {
    return paths.graphicsFile(std::string(skinName) + schemeSuffix(width, height));
}

std::filesystem::path previewSchemeFile(const Paths& paths, std::string_view skinName, int width,
                                        int height) {
    if (height < width)
        return schemeFile(paths, skinName, height, width);
    return schemeFile(paths, skinName, width, height);
}

std::string skinNameOf(std::string_view fileName) {
    const std::size_t cut = fileName.rfind('_');
    return std::string(cut == std::string_view::npos ? fileName : fileName.substr(0, cut));
}

std::size_t selectedSkin(const std::vector<std::string>& names, std::string_view current) {
    std::size_t selected = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == current)
            selected = i;
    }
    return selected;
}

SkinList enumerateSkins(const Paths& paths, int width, int height, std::string_view current) {
    const std::string suffix = schemeSuffix(width, height);
    std::vector<std::string> fileNames;
    std::error_code error;
    for (std::filesystem::directory_iterator it(paths.graphicsDir(), error), end;
         !error && it != end; it.increment(error)) {
        // Matched case-sensitively, like the file system that later opens the
        // scheme by its exact name; folders are no schemes.
        std::string name = it->path().filename().string();
        std::error_code kindError;
        if (name.ends_with(suffix) && !it->is_directory(kindError))
            fileNames.push_back(std::move(name));
    }
    // Directory order on Linux depends on the file system and its history, so
    // the list is sorted by file name to show the same order every time.
    std::sort(fileNames.begin(), fileNames.end());

    SkinList list;
    for (const std::string& fileName : fileNames)
        list.names.push_back(skinNameOf(fileName));
    list.selected = selectedSkin(list.names, current);
    return list;
}

} // namespace zonara

#pragma once
// Where skin scheme files lie for a screen size, and which skins a screen has.

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/Paths.h"

namespace zonara {

// "_WxH.xml", the suffix that ties a scheme file to one screen size.
std::string schemeSuffix(int width, int height);

// Graphics/ + skin name + "_WxH.xml". The skin name keeps whatever it holds,
// so "default.xml" at 240x320 names default.xml_240x320.xml.
std::filesystem::path schemeFile(const Paths& paths, std::string_view skinName, int width,
                                 int height);

// The skin chooser's preview always reads the portrait-named file: on a
// landscape screen (wider than high) the two numbers are swapped.
std::filesystem::path previewSchemeFile(const Paths& paths, std::string_view skinName, int width,
                                        int height);

// The skin name of a scheme file name: everything before its last "_".
std::string skinNameOf(std::string_view fileName);

struct SkinList {
    std::vector<std::string> names;
    std::size_t selected = 0; // index into names; 0 also when names is empty
};

// The entry equal to the current skin name (case-sensitive); when several
// are, the last one; when none is, entry 0.
std::size_t selectedSkin(const std::vector<std::string>& names, std::string_view current);

// The skins that have a scheme file for this screen size, one entry per file
// in Graphics/ whose name ends in "_WxH.xml", with the current one selected.
SkinList enumerateSkins(const Paths& paths, int width, int height, std::string_view current);

} // namespace zonara

#pragma once
// The options that hold for every command and for the window.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/SystemTime.h"

namespace zonara {

struct GlobalOptions {
    std::optional<std::filesystem::path> root;
    std::optional<SystemTime> at;
    int screenWidth = 480;
    int screenHeight = 640;
    bool tsv = false;
    bool secondDisplay = false;
};

// The words once the global options are taken out (they may stand anywhere):
// the command and its own words.
struct ParsedCommandLine {
    GlobalOptions options;
    std::vector<std::string> rest;
    bool help = false;    // --help or -h before any command
    bool version = false; // --version before any command
    std::string error;    // the first bad global option
};
ParsedCommandLine parseGlobalOptions(const std::vector<std::string>& argv);

// "WxH" into width and height; nothing for anything else.
std::optional<std::pair<int, int>> parseScreenSize(std::string_view text);

} // namespace zonara

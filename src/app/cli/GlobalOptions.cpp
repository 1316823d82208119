#include "app/cli/GlobalOptions.h"

#include <charconv>

#include "app/cli/Args.h"

namespace zonara {

std::optional<std::pair<int, int>> parseScreenSize(std::string_view text) {
    const std::size_t x = text.find_first_of("xX");
    if (x == std::string_view::npos) {
        return std::nullopt;
    }
    int w = 0, h = 0;
    const auto [endW, errW] = std::from_chars(text.data(), text.data() + x, w);
    const auto [endH, errH] = std::from_chars(text.data() + x + 1, text.data() + text.size(), h);
    if (errW != std::errc{} || errH != std::errc{} || endW != text.data() + x ||
        endH != text.data() + text.size() || w < 16 || h < 16 || w > 4096 || h > 4096) {
        return std::nullopt;
    }
    return std::pair{w, h};
}

namespace {

// Reads one global option's value into the options; the error text otherwise.
std::string apply(GlobalOptions& options, std::string_view name, const std::string& value) {
    if (name == "--root") {
        options.root = value;
    } else if (name == "--at") {
        options.at = parseIsoUtc(value);
        if (!options.at) {
            return "--at wants a UTC time as YYYY-MM-DDTHH:MM:SSZ, not '" + value + "'";
        }
    } else if (const auto size = parseScreenSize(value)) {
        options.screenWidth = size->first;
        options.screenHeight = size->second;
    } else {
        return "--screen wants a size as WIDTHxHEIGHT, such as 240x320, not '" + value + "'";
    }
    return {};
}

} // namespace

ParsedCommandLine parseGlobalOptions(const std::vector<std::string>& argv) {
    ParsedCommandLine parsed;
    for (std::size_t i = 0; i < argv.size() && parsed.error.empty(); ++i) {
        const std::string& word = argv[i];
        std::string_view valued;
        for (const std::string_view name : {"--root", "--at", "--screen"}) {
            if (isOptionWord(word, name)) {
                valued = name;
            }
        }
        if (!valued.empty()) {
            if (const auto value = takeOptionValue(argv, i, valued)) {
                parsed.error = apply(parsed.options, valued, *value);
            } else {
                parsed.error = std::string(valued) + " needs a value";
            }
        } else if (word == "--tsv") {
            parsed.options.tsv = true;
        } else if (word == "--second-display") {
            parsed.options.secondDisplay = true;
        } else if ((word == "--help" || word == "-h") && parsed.rest.empty()) {
            parsed.help = true;
        } else if (word == "--version" && parsed.rest.empty()) {
            parsed.version = true;
        } else {
            parsed.rest.push_back(word);
        }
    }
    return parsed;
}

} // namespace zonara

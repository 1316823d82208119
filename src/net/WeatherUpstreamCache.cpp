#include "net/WeatherUpstreamCache.h"

#include <charconv>
#include <fstream>
#include <iterator>

#include "core/FileWriter.h"

namespace zonara {

namespace {

constexpr std::string_view magic = "zonara-upstream-cache 1\n";

// Takes one line off the front; false when there is no line end.
bool takeLine(std::string_view& rest, std::string_view& line) {
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos)
        return false;
    line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

} // namespace

std::filesystem::path WeatherUpstreamCache::fileFor(std::string_view key) const {
    std::string name = "metno-";
    for (const char c : key) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '.' || c == '-';
        name += plain ? c : '_';
    }
    return folder / (name + ".cache");
}

std::optional<CachedAnswer> WeatherUpstreamCache::read(std::string_view key) const {
    if (folder.empty())
        return std::nullopt;
    std::ifstream in(fileFor(key), std::ios::binary);
    if (!in)
        return std::nullopt;
    const std::string contents{std::istreambuf_iterator<char>(in),
                               std::istreambuf_iterator<char>()};
    std::string_view rest = contents;
    if (!rest.starts_with(magic))
        return std::nullopt;
    rest.remove_prefix(magic.size());
    std::string_view expires;
    std::string_view lastModified;
    if (!takeLine(rest, expires) || !takeLine(rest, lastModified))
        return std::nullopt;
    CachedAnswer answer;
    const auto parsed =
        std::from_chars(expires.data(), expires.data() + expires.size(), answer.expires);
    if (parsed.ec != std::errc{} || parsed.ptr != expires.data() + expires.size())
        return std::nullopt;
    answer.lastModified = std::string(lastModified);
    answer.body = std::string(rest);
    return answer;
}

bool WeatherUpstreamCache::write(std::string_view key, const CachedAnswer& answer) const {
    if (folder.empty())
        return false;
    std::string contents(magic);
    contents += std::to_string(answer.expires);
    contents += '\n';
    // A header value never holds a line end; one that did would break the entry.
    for (const char c : answer.lastModified)
        contents += (c == '\n' || c == '\r') ? ' ' : c;
    contents += '\n';
    contents += answer.body;
    return replaceFiles({{fileFor(key), contents}});
}

} // namespace zonara

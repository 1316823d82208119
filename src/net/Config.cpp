#include "net/Config.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>

namespace zonara {

namespace {

std::string_view trim(std::string_view s) {
    const auto first = s.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) {
        return {};
    }
    const auto last = s.find_last_not_of(" \t\r");
    return s.substr(first, last - first + 1);
}

// A comment starts at ';' or '#' at the start of a value or after white space,
// so that URLs keep the semicolons and hashes inside them.
std::string_view withoutComment(std::string_view value) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool marker = value[i] == ';' || value[i] == '#';
        if (marker && (i == 0 || value[i - 1] == ' ' || value[i - 1] == '\t')) {
            return trim(value.substr(0, i));
        }
    }
    return trim(value);
}

std::string lower(std::string_view s) {
    std::string out(s);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') {
            c = char(c - 'A' + 'a');
        }
    }
    return out;
}

std::optional<bool> parseBool(std::string_view value) {
    const std::string v = lower(value);
    if (v == "true" || v == "yes" || v == "on" || v == "1") {
        return true;
    }
    if (v == "false" || v == "no" || v == "off" || v == "0") {
        return false;
    }
    return std::nullopt;
}

std::optional<std::uint16_t> parsePort(std::string_view value) {
    unsigned port = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), port);
    if (error != std::errc() || end != value.data() + value.size() || port == 0 || port > 65535) {
        return std::nullopt;
    }
    return std::uint16_t(port);
}

// Whole or decimal seconds, so that tests can ask for a fraction of one.
std::optional<std::chrono::milliseconds> parseSeconds(std::string_view value) {
    double seconds = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), seconds);
    if (error != std::errc() || end != value.data() + value.size() || !std::isfinite(seconds) ||
        seconds <= 0 || seconds > 86400) {
        return std::nullopt;
    }
    const auto ms = std::chrono::milliseconds(std::llround(seconds * 1000));
    return ms.count() > 0 ? std::optional(ms) : std::nullopt;
}

// A host name or address, without scheme, path or white space.
std::optional<std::string> parseHost(std::string_view value) {
    if (value.empty()) {
        return std::string();
    }
    for (const char c : value) {
        const bool allowed = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == '.' || c == '-' || c == ':' ||
                             c == '[' || c == ']';
        if (!allowed) {
            return std::nullopt;
        }
    }
    return std::string(value);
}

std::optional<WeatherSource> parseSource(std::string_view value) {
    const std::string v = lower(value);
    if (v == "auto") {
        return WeatherSource::Auto;
    }
    if (v == "hosts") {
        return WeatherSource::Hosts;
    }
    if (v == "metno") {
        return WeatherSource::Metno;
    }
    return std::nullopt;
}

std::optional<std::string> parseUrl(std::string_view value) {
    const bool web = value.starts_with("http://") || value.starts_with("https://");
    if (!web || value.find_first_of(" \t") != std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(value);
}

class Reader {
  public:
    Reader(std::string_view fileName, ConfigRead& out) : fileName(fileName), out(out) {}

    void line(std::size_t number, std::string_view text) {
        lineNumber = number;
        text = trim(text);
        if (text.empty() || text[0] == ';' || text[0] == '#') {
            return;
        }
        if (text[0] == '[') {
            const auto close = text.find(']');
            section = close == std::string_view::npos ? std::string()
                                                      : lower(trim(text.substr(1, close - 1)));
            return;
        }
        const auto equals = text.find('=');
        if (equals == std::string_view::npos) {
            return; // not a key: ignored like an unknown key
        }
        key = lower(trim(text.substr(0, equals)));
        value = withoutComment(text.substr(equals + 1));
        apply();
    }

  private:
    template <typename T, typename Parse>
    void set(T& field, Parse parse, std::string_view defaultText) {
        if (auto parsed = parse(value)) {
            field = std::move(*parsed);
            return;
        }
        out.warnings.push_back(std::string(fileName) + ":" + std::to_string(lineNumber) + ": [" +
                               section + "] " + key + "=" + std::string(value) +
                               " is not valid; using " + std::string(defaultText));
    }

    void apply() {
        Config& c = out.config;
        const Config defaults;
        if (section == "network") {
            if (key == "offline") {
                set(c.network.offline, parseBool, "false");
            } else if (key == "http_port") {
                set(c.network.httpPort, parsePort, "80");
            } else if (key == "https_port") {
                set(c.network.httpsPort, parsePort, "443");
            } else if (key == "timeout_s") {
                set(c.network.timeout, parseSeconds, "100");
            }
        } else if (section == "update") {
            if (key == "primary") {
                set(c.update.primary, parseHost, "no host");
            } else if (key == "fallback") {
                set(c.update.fallback, parseHost, "no host");
            }
        } else if (section == "weather") {
            if (key == "source") {
                set(c.weather.source, parseSource, "auto");
            } else if (key == "contact") {
                c.weather.contact = std::string(value);
            }
        } else if (section == "currency") {
            if (key == "codes") {
                set(c.currency.codes, parseUrl, defaults.currency.codes);
            } else if (key == "rates") {
                set(c.currency.rates, parseUrl, defaults.currency.rates);
            }
        }
    }

    std::string_view fileName;
    ConfigRead& out;
    std::string section;
    std::string key;
    std::string_view value;
    std::size_t lineNumber = 0;
};

} // namespace

ConfigRead parseConfig(std::string_view text, std::string_view fileName) {
    ConfigRead out;
    Reader reader(fileName, out);
    std::size_t number = 0;
    while (!text.empty()) {
        const auto end = text.find('\n');
        reader.line(++number, text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return out;
}

ConfigRead readConfig(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return {};
    }
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return parseConfig(text, file.string());
}

std::filesystem::path configFile(const Paths& paths) {
    return paths.root() / "zonara.ini";
}

Config loadConfig(const Paths& paths, std::ostream& err, std::string_view prefix) {
    ConfigRead read = readConfig(configFile(paths));
    for (const std::string& warning : read.warnings) {
        err << prefix << warning << "\n";
    }
    return std::move(read.config);
}

} // namespace zonara

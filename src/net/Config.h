#pragma once
// The settings of zonara.ini: network, update hosts, weather and currency sources.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "core/Paths.h"

namespace zonara {

struct NetworkConfig {
    bool offline = false;          // every transfer fails at once
    std::uint16_t httpPort = 80;   // the port of every plain transfer, whatever the URL says
    std::uint16_t httpsPort = 443; // the port of every secure transfer
    std::chrono::milliseconds timeout{100000}; // the longest wait for one read
};

struct UpdateConfig {
    std::string primary; // empty: no update host
    std::string fallback;
};

enum class WeatherSource { Auto, Hosts, Metno };

struct WeatherConfig {
    WeatherSource source = WeatherSource::Auto;
    std::string contact;
};

struct CurrencyConfig {
    std::string codes =
        "http://www.unece.org/etrades/unedocs/repository/codelists/xml/CurrencyCodeList.xml";
    std::string rates = "https://www.ecb.europa.eu/stats/eurofxref/eurofxref-daily.xml";
};

struct Config {
    NetworkConfig network;
    UpdateConfig update;
    WeatherConfig weather;
    CurrencyConfig currency;
};

struct ConfigRead {
    Config config;
    // One line per malformed value, naming the file, line, key and the default
    // used; the caller prints each once.
    std::vector<std::string> warnings;
};

// A missing file gives every default and no warning.
ConfigRead readConfig(const std::filesystem::path& file);
ConfigRead parseConfig(std::string_view text, std::string_view fileName = "zonara.ini");

std::filesystem::path configFile(const Paths& paths);

// ROOT/zonara.ini as a program reads it at start: each warning printed on
// err once, after the prefix ("zonara: ").
Config loadConfig(const Paths& paths, std::ostream& err, std::string_view prefix);

} // namespace zonara

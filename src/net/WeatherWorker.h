#pragma once
// One weather update: fetch a report, keep it in Data/weather.xml, read it back.

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "core/Paths.h"
#include "net/WeatherPlace.h"
#include "net/WeatherReport.h"

namespace zonara {

class MetNoReportSource;

// What a run needs of the transfer layer: the connection check and a page
// fetcher's open, get and close.
class WeatherTransport {
  public:
    virtual ~WeatherTransport() = default;
    // Before each attempt, for the host it is about to use.
    virtual bool ensureConnection(const std::string& host) = 0;
    virtual bool open(const std::string& host) = 0;
    // The body when the page was read (status 200), else nothing.
    virtual std::optional<std::string> get(const std::string& path) = 0;
    virtual void close() = 0;
};

enum class WeatherMode {
    Hosts,  // the weather paths on the two hosts
    Direct, // the provider, through the gateway's translation in-process
};

struct WeatherSetup {
    WeatherMode mode = WeatherMode::Hosts;
    std::string primaryHost; // the weather service's order: the update's fallback first
    std::string fallbackHost;
};

// From [weather] source ("auto", "hosts" or "metno") and the update hosts.
// The weather service tries the update's fallback host first and its primary
// second. "auto" goes direct when the update names no host.
WeatherSetup chooseWeatherSetup(std::string_view source, const std::string& updatePrimary,
                                const std::string& updateFallback);

// The path of an attempt (0 first, 1 second) with the query key as stored,
// already URL-encoded.
std::string weatherPath(int attempt, std::string_view queryKey);

struct WeatherJob {
    std::string queryKey; // the selected slot's weather query key
    WeatherPlace place;   // the same city, for direct mode
};

struct WeatherOutcome {
    enum class Kind {
        Stored,    // a new report was fetched and kept
        Failed,    // error holds the text for the message box
        NotStored, // fetched, but the file could not be written: no message
        Cancelled,
    };
    Kind kind = Kind::Failed;
    std::string error;
    // The stored report as it stands after the run (the new one, or the last
    // good one again); nothing when there is none.
    std::optional<WeatherReport> report;
};

struct WeatherRun {
    Paths paths;
    WeatherSetup setup;
    WeatherUnits units;
    WeatherTransport* transport = nullptr;        // the connection check, and the hosts
    MetNoReportSource* direct = nullptr;          // direct mode's source
    std::function<void(std::string_view)> status; // progress texts for the status line
};

// True for a page the client keeps: "<root>" in it and within the size limit.
bool isWeatherReport(std::string_view body);

WeatherOutcome runWeatherUpdate(const WeatherRun& run, const WeatherJob& job,
                                std::stop_token stop = {});

} // namespace zonara

#pragma once
// One weather update as this installation makes it: the update hosts' weather
// paths, or the forecast provider directly, as zonara.ini says.

#include <functional>
#include <stop_token>
#include <string>
#include <string_view>

#include "core/ClockSource.h"
#include "core/Paths.h"
#include "net/Config.h"
#include "net/WeatherMetNoSource.h"
#include "net/WeatherWorker.h"

namespace zonara {

// Progress texts of a run, for a status line.
using WeatherStatus = std::function<void(std::string_view)>;

// One update, run on a worker thread: it touches no window, reports progress
// through the status function and ends early on a stop request.
using WeatherUpdater = std::function<WeatherOutcome(
    const WeatherUnits& units, const WeatherStatus& status, std::stop_token stop)>;

struct WeatherService {
    Paths paths;
    ClockSource clock = ClockSource::system(); // "now" for reports made in direct mode
    NetworkConfig network;
    WeatherSetup setup; // hosts or direct, the hosts in the weather order
    std::string contact;
    std::string metnoUrl{defaultMetNoUrl};
};

// [weather] source and contact, [update] hosts and [network] of the configuration.
WeatherService weatherServiceFor(const Paths& paths, const ClockSource& clock,
                                 const Config& config);

// Runs one update for the job. In direct mode the provider is asked over the
// configured port of its scheme, and its answers are kept in Data/ until they
// expire.
WeatherOutcome updateWeather(const WeatherService& service, const WeatherJob& job,
                             const WeatherUnits& units, const WeatherStatus& status,
                             std::stop_token stop);

// The same, bound to one service and job.
WeatherUpdater weatherUpdater(WeatherService service, WeatherJob job);

} // namespace zonara

#pragma once
// Weather reports made from MET Norway's forecast, fetched once per expiry.

#include <cstdint>
#include <filesystem>
#include <string>

#include "core/ClockSource.h"
#include "net/WeatherPlace.h"
#include "net/WeatherUpstream.h"
#include "net/WeatherUpstreamCache.h"

namespace zonara {

inline constexpr std::string_view defaultMetNoUrl =
    "https://api.met.no/weatherapi/locationforecast/2.0/compact";

struct MetNoSettings {
    std::string url{defaultMetNoUrl};
    std::string program = "zonara";    // named in the User-Agent
    std::string contact;               // who to reach about this installation
    std::filesystem::path cacheFolder; // empty: nothing is kept
};

struct MetNoResult {
    enum class Status { Report, Unreachable, NoReport };
    Status status = Status::Unreachable;
    std::string report;       // the report when there is one
    std::int64_t expires = 0; // until when the forecast behind it holds
    std::string detail;       // what went wrong, for logs
};

class MetNoReportSource {
  public:
    MetNoReportSource(MetNoSettings settings, WeatherUpstream& upstream, ClockSource clock)
        : settings(std::move(settings)), upstream(upstream), clock(clock),
          cache(this->settings.cacheFolder) {}

    // A cached forecast that has not expired is used as it is; an expired one
    // is asked for again with If-Modified-Since, and a "not modified" answer
    // keeps it for the new expiry. A cache that cannot be written costs only
    // the next request.
    MetNoResult reportFor(const WeatherPlace& place);

    std::string userAgent() const;
    // The forecast's address for a place: four decimals at most, as the
    // provider asks.
    std::string urlFor(const WeatherPlace& place) const;

  private:
    MetNoSettings settings;
    WeatherUpstream& upstream;
    ClockSource clock;
    WeatherUpstreamCache cache;
};

} // namespace zonara

#pragma once
// The update host's weather answer: a query for a city's key to a CGI response.

#include <filesystem>
#include <string>

#include "core/ClockSource.h"
#include "net/WeatherMetNoSource.h"
#include "net/WeatherUpstream.h"

namespace zonara {

struct GatewaySettings {
    std::string queryString;               // QUERY_STRING
    std::filesystem::path worldFolder;     // ZONARA_WORLD: city40.dat and its siblings
    std::string metnoUrl{defaultMetNoUrl}; // ZONARA_METNO_URL
    std::string contact;                   // ZONARA_CONTACT
    std::filesystem::path cacheFolder;     // ZONARA_CACHE
};

struct GatewayResponse {
    int status = 200;
    std::string contentType;
    std::string expires; // an HTTP date, or empty
    std::string body;
    std::string log; // a line for the server's error log, or empty

    // Headers and body as a CGI program writes them.
    std::string cgiOutput() const;
};

// The report for the city whose weather query key the "pands" parameter
// names. An unknown city or a provider that fails gives a short text page
// without a report in it, so that a client moves on to its other host.
GatewayResponse answerWeatherQuery(const GatewaySettings& settings, WeatherUpstream& upstream,
                                   const ClockSource& clock);

// The settings from a CGI program's environment.
GatewaySettings gatewaySettingsFromEnvironment();

} // namespace zonara

// zonara-weather-gateway: answers the weather paths of the update host as a
// CGI program. Its settings come from the environment nginx passes:
// QUERY_STRING, ZONARA_WORLD, ZONARA_METNO_URL, ZONARA_CONTACT, ZONARA_CACHE,
// and ZONARA_AT (a fixed UTC time, YYYY-MM-DDTHH:MM:SSZ, as zonara --at).

#include <cstdio>
#include <cstdlib>
#include <string>

#include <curl/curl.h>

#include "core/ClockSource.h"
#include "core/SystemTime.h"
#include "net/WeatherGateway.h"

namespace {

// A request body (the client sends one even with GET) is read and dropped,
// so that the server never writes into a pipe nobody reads.
void drainRequestBody() {
    const char* length = std::getenv("CONTENT_LENGTH");
    long left = length ? std::strtol(length, nullptr, 10) : 0;
    char buffer[4096];
    while (left > 0) {
        const std::size_t want = left < long(sizeof buffer) ? std::size_t(left) : sizeof buffer;
        const std::size_t got = std::fread(buffer, 1, want, stdin);
        if (got == 0)
            break;
        left -= long(got);
    }
}

zonara::ClockSource clockFromEnvironment() {
    const char* at = std::getenv("ZONARA_AT");
    if (at && *at) {
        if (const auto fixed = zonara::parseIsoUtc(at))
            return zonara::ClockSource::fixedAt(*fixed);
        std::fprintf(stderr, "zonara-weather-gateway: ZONARA_AT is not a UTC time: %s\n", at);
    }
    return zonara::ClockSource::system();
}

} // namespace

int main() {
    drainRequestBody();
    curl_global_init(CURL_GLOBAL_DEFAULT);
    const zonara::GatewaySettings settings = zonara::gatewaySettingsFromEnvironment();
    zonara::CurlWeatherUpstream upstream;
    const zonara::GatewayResponse response =
        zonara::answerWeatherQuery(settings, upstream, clockFromEnvironment());
    if (!response.log.empty())
        std::fprintf(stderr, "%s\n", response.log.c_str());
    const std::string output = response.cgiOutput();
    std::fwrite(output.data(), 1, output.size(), stdout);
    std::fflush(stdout);
    curl_global_cleanup();
    return 0;
}

#include "net/WeatherGateway.h"

#include <cstdlib>

#include "net/WeatherPlace.h"

namespace zonara {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string_view reason(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 502:
        return "Bad Gateway";
    default:
        return "Error";
    }
}

GatewayResponse textPage(int status, std::string text, std::string log) {
    GatewayResponse response;
    response.status = status;
    response.contentType = "text/plain; charset=UTF-8";
    response.body = std::move(text) + "\n";
    response.log = std::move(log);
    return response;
}

} // namespace

std::string GatewayResponse::cgiOutput() const {
    std::string out = "Status: " + std::to_string(status) + " " + std::string(reason(status));
    out += "\r\nContent-Type: " + contentType;
    out += "\r\nContent-Length: " + std::to_string(body.size());
    if (!expires.empty())
        out += "\r\nExpires: " + expires;
    else
        out += "\r\nCache-Control: no-store";
    out += "\r\n\r\n";
    return out + body;
}

GatewayResponse answerWeatherQuery(const GatewaySettings& settings, WeatherUpstream& upstream,
                                   const ClockSource& clock) {
    const std::optional<std::string> key = queryParameter(settings.queryString, "pands");
    if (!key || key->empty())
        return textPage(400, "No city asked for", {});
    const std::optional<WeatherPlace> place = findWeatherPlace(settings.worldFolder, *key);
    if (!place)
        return textPage(404, "No weather for this city", {});
    MetNoSettings metno;
    metno.url = settings.metnoUrl.empty() ? std::string(defaultMetNoUrl) : settings.metnoUrl;
    metno.program = "zonara-weather-gateway";
    metno.contact = settings.contact;
    metno.cacheFolder = settings.cacheFolder;
    MetNoReportSource source(std::move(metno), upstream, clock);
    const MetNoResult result = source.reportFor(*place);
    if (result.status != MetNoResult::Status::Report) {
        return textPage(502, "Weather is not available now",
                        "zonara-weather-gateway: " + place->heading + ": " + result.detail);
    }
    GatewayResponse response;
    response.contentType = "text/xml; charset=UTF-8";
    response.expires = formatHttpDate(result.expires);
    response.body = result.report;
    return response;
}

GatewaySettings gatewaySettingsFromEnvironment() {
    GatewaySettings settings;
    settings.queryString = environment("QUERY_STRING");
    settings.worldFolder = environment("ZONARA_WORLD");
    settings.metnoUrl = environment("ZONARA_METNO_URL");
    if (settings.metnoUrl.empty())
        settings.metnoUrl = defaultMetNoUrl;
    settings.contact = environment("ZONARA_CONTACT");
    settings.cacheFolder = environment("ZONARA_CACHE");
    return settings;
}

} // namespace zonara

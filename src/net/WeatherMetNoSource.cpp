#include "net/WeatherMetNoSource.h"

#include <cstdio>
#include <optional>

#include "core/SystemTime.h"
#include "net/WeatherTranslation.h"

namespace zonara {

namespace {

// When the provider names no expiry, its usual update interval stands in.
constexpr std::int64_t defaultLifetime = 30 * 60;

std::string coordinate(double degrees) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.4f", degrees);
    std::string text = buffer;
    // "51.5100" reads as "51.51"; the provider caches on the shortest form.
    while (text.find('.') != std::string::npos && (text.back() == '0' || text.back() == '.')) {
        const bool point = text.back() == '.';
        text.pop_back();
        if (point)
            break;
    }
    return text == "-0" ? "0" : text;
}

std::string cacheKey(const WeatherPlace& place) {
    return coordinate(place.latitude) + "_" + coordinate(place.longitude);
}

} // namespace

std::string MetNoReportSource::userAgent() const {
    std::string agent = settings.program + "/0.1";
    if (!settings.contact.empty())
        agent += " " + settings.contact;
    return agent;
}

std::string MetNoReportSource::urlFor(const WeatherPlace& place) const {
    const char joiner = settings.url.find('?') == std::string::npos ? '?' : '&';
    return settings.url + joiner + "lat=" + coordinate(place.latitude) +
           "&lon=" + coordinate(place.longitude);
}

MetNoResult MetNoReportSource::reportFor(const WeatherPlace& place) {
    MetNoResult result;
    const std::int64_t now = unixFromSystemTime(clock.utcNow());
    const std::string key = cacheKey(place);
    std::optional<CachedAnswer> cached = cache.read(key);
    if (!cached || cached->expires <= now) {
        UpstreamRequest request;
        request.url = urlFor(place);
        request.userAgent = userAgent();
        if (cached)
            request.ifModifiedSince = cached->lastModified;
        const UpstreamAnswer answer = upstream.get(request);
        const bool fresh = answer.answered && (answer.status == 200 || answer.status == 203);
        const bool unchanged = answer.answered && answer.status == 304 && cached;
        if (!fresh && !unchanged) {
            result.detail =
                answer.answered ? "HTTP " + std::to_string(answer.status) : answer.error;
            return result;
        }
        CachedAnswer renewed =
            fresh ? CachedAnswer{0, answer.lastModified, answer.body} : std::move(*cached);
        if (unchanged && !answer.lastModified.empty())
            renewed.lastModified = answer.lastModified;
        renewed.expires = parseHttpDate(answer.expires).value_or(now + defaultLifetime);
        cache.write(key, renewed);
        cached = std::move(renewed);
    }
    result.expires = cached->expires;
    std::optional<std::string> report = translateMetForecast(cached->body, place, now);
    if (!report) {
        result.status = MetNoResult::Status::NoReport;
        result.detail = "the forecast did not read";
        return result;
    }
    result.status = MetNoResult::Status::Report;
    result.report = std::move(*report);
    return result;
}

} // namespace zonara

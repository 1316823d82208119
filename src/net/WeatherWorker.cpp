#include "net/WeatherWorker.h"

#include "core/FileWriter.h"
#include "net/TransferTarget.h"
#include "net/WeatherMetNoSource.h"
#include "net/WeatherTexts.h"
#include "net/WeatherTranslation.h"

namespace zonara {

namespace {

constexpr std::string_view weatherPaths[2] = {
    "/cgi-bin/hamweather/hw3.pl?config=&maxdays=4&forecast=zandh&pands=",
    "/cgi-bin/hamweather/hw3.cgi?config=&maxdays=4&forecast=zandh&pands=",
};

// Closes the transport's page fetcher on every way out of a run.
class Closer {
  public:
    explicit Closer(WeatherTransport* transport) : transport(transport) {}
    ~Closer() {
        if (transport)
            transport->close();
    }
    Closer(const Closer&) = delete;
    Closer& operator=(const Closer&) = delete;

  private:
    WeatherTransport* transport;
};

// How the fetching part of a run ended.
struct Fetch {
    WeatherOutcome::Kind kind = WeatherOutcome::Kind::Failed;
    std::string error;
    std::string body;
};

Fetch failed(std::string_view error) {
    return {WeatherOutcome::Kind::Failed, std::string(error), {}};
}

Fetch cancelled() {
    return {WeatherOutcome::Kind::Cancelled, {}, {}};
}

void say(const WeatherRun& run, std::string_view text) {
    if (run.status)
        run.status(text);
}

Fetch fetchFromHosts(const WeatherRun& run, const WeatherJob& job, std::stop_token stop) {
    WeatherTransport& transport = *run.transport;
    const std::string hosts[2] = {run.setup.primaryHost, run.setup.fallbackHost};
    // With no host at all there is nothing to connect to, as for the data
    // update; one missing host is an attempt that cannot open.
    if (hosts[0].empty() && hosts[1].empty())
        return failed(weather_text::unableToConnect);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const bool last = attempt == 1;
        transport.close();
        if (stop.stop_requested())
            return cancelled();
        const bool named = !hosts[attempt].empty();
        if (named && !transport.ensureConnection(hosts[attempt]))
            return failed(weather_text::unableToConnect);
        say(run, weather_text::connecting);
        if (!named || !transport.open(hosts[attempt])) {
            if (last)
                return failed(weather_text::serverError);
            continue;
        }
        if (stop.stop_requested())
            return cancelled();
        say(run, weather_text::gettingWeather);
        std::optional<std::string> body = transport.get(weatherPath(attempt, job.queryKey));
        if (body && isWeatherReport(*body))
            return {WeatherOutcome::Kind::Stored, {}, std::move(*body)};
        // A read that a stop aborted is no answer of the host's.
        if (stop.stop_requested())
            return cancelled();
        if (last)
            return failed(weather_text::noWeather);
    }
    return failed(weather_text::noWeather); // not reached: the second attempt returns
}

Fetch fetchDirect(const WeatherRun& run, const WeatherJob& job, std::stop_token stop) {
    if (!run.direct)
        return failed(weather_text::serverError);
    if (run.transport) {
        const std::optional<TransferTarget> provider = crackUrl(run.direct->urlFor(job.place));
        if (!provider || !run.transport->ensureConnection(provider->host))
            return failed(weather_text::unableToConnect);
    }
    if (stop.stop_requested())
        return cancelled();
    say(run, weather_text::connecting);
    say(run, weather_text::gettingWeather);
    MetNoResult result = run.direct->reportFor(job.place);
    if (stop.stop_requested())
        return cancelled();
    switch (result.status) {
    case MetNoResult::Status::Unreachable:
        return failed(weather_text::serverError);
    case MetNoResult::Status::NoReport:
        return failed(weather_text::noWeather);
    case MetNoResult::Status::Report:
        break;
    }
    if (!isWeatherReport(result.report))
        return failed(weather_text::noWeather);
    return {WeatherOutcome::Kind::Stored, {}, std::move(result.report)};
}

} // namespace

WeatherSetup chooseWeatherSetup(std::string_view source, const std::string& updatePrimary,
                                const std::string& updateFallback) {
    WeatherSetup setup;
    setup.primaryHost = updateFallback;
    setup.fallbackHost = updatePrimary;
    if (source == "metno")
        setup.mode = WeatherMode::Direct;
    else if (source == "hosts")
        setup.mode = WeatherMode::Hosts;
    else
        setup.mode = updatePrimary.empty() && updateFallback.empty() ? WeatherMode::Direct
                                                                     : WeatherMode::Hosts;
    return setup;
}

std::string weatherPath(int attempt, std::string_view queryKey) {
    return std::string(weatherPaths[attempt == 0 ? 0 : 1]) + std::string(queryKey);
}

bool isWeatherReport(std::string_view body) {
    return body.size() <= weatherReportLimit && body.find("<root>") != std::string_view::npos;
}

WeatherOutcome runWeatherUpdate(const WeatherRun& run, const WeatherJob& job,
                                std::stop_token stop) {
    const Closer closer(run.transport);
    say(run, weather_text::dialConnection);
    Fetch fetch;
    if (run.setup.mode == WeatherMode::Direct)
        fetch = fetchDirect(run, job, stop);
    else if (run.transport)
        fetch = fetchFromHosts(run, job, stop);
    else
        fetch = failed(weather_text::unableToConnect);

    WeatherOutcome outcome;
    outcome.kind = fetch.kind;
    outcome.error = std::move(fetch.error);
    if (outcome.kind == WeatherOutcome::Kind::Cancelled)
        return outcome;
    if (outcome.kind == WeatherOutcome::Kind::Stored &&
        !replaceFiles({{run.paths.dataFile(weatherFileName), fetch.body}}))
        outcome.kind = WeatherOutcome::Kind::NotStored;
    outcome.report = loadWeatherReport(run.paths.dataFile(weatherFileName), run.units);
    return outcome;
}

} // namespace zonara

#include "net/WeatherService.h"

#include <chrono>

#include "net/TransferTarget.h"
#include "net/WeatherPageTransport.h"

namespace zonara {

namespace {

std::string_view sourceName(WeatherSource source) {
    switch (source) {
    case WeatherSource::Hosts:
        return "hosts";
    case WeatherSource::Metno:
        return "metno";
    case WeatherSource::Auto:
        break;
    }
    return "auto";
}

} // namespace

WeatherService weatherServiceFor(const Paths& paths, const ClockSource& clock,
                                 const Config& config) {
    WeatherService service;
    service.paths = paths;
    service.clock = clock;
    service.network = config.network;
    service.setup = chooseWeatherSetup(sourceName(config.weather.source), config.update.primary,
                                       config.update.fallback);
    service.contact = config.weather.contact;
    return service;
}

WeatherOutcome updateWeather(const WeatherService& service, const WeatherJob& job,
                             const WeatherUnits& units, const WeatherStatus& status,
                             std::stop_token stop) {
    const std::optional<TransferTarget> provider = crackUrl(service.metnoUrl);
    const bool secure = provider && provider->https;
    const long seconds = std::max<long>(
        1, long(std::chrono::ceil<std::chrono::seconds>(service.network.timeout).count()));
    CurlWeatherUpstream upstream(
        seconds, secure ? service.network.httpsPort : service.network.httpPort, stop);
    MetNoSettings metno;
    metno.url = service.metnoUrl;
    metno.contact = service.contact;
    metno.cacheFolder = service.paths.dataDir();
    MetNoReportSource direct(std::move(metno), upstream, service.clock);
    WeatherPageTransport transport(service.network, stop);

    WeatherRun run;
    run.paths = service.paths;
    run.setup = service.setup;
    run.units = units;
    run.transport = &transport;
    run.direct = &direct;
    run.status = status;
    return runWeatherUpdate(run, job, std::move(stop));
}

WeatherUpdater weatherUpdater(WeatherService service, WeatherJob job) {
    return [service = std::move(service), job = std::move(job)](
               const WeatherUnits& units, const WeatherStatus& status, std::stop_token stop) {
        return updateWeather(service, job, units, status, std::move(stop));
    };
}

} // namespace zonara

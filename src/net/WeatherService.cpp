#include "net/WeatherService.h"

namespace zonara {

WeatherService weatherServiceFor(const Paths& paths, const ClockSource& clock) {
    WeatherService service;
    service.paths = paths;
    service.clock = clock;
    service.setup = chooseWeatherSetup("auto", {}, {});
    return service;
}

WeatherOutcome updateWeather(const WeatherService& service, const WeatherJob& job,
                             const WeatherUnits& units, const WeatherStatus& status,
                             std::stop_token stop) {
    CurlWeatherUpstream upstream(service.timeoutSeconds, std::nullopt, stop);
    MetNoSettings metno;
    metno.url = service.metnoUrl;
    metno.contact = service.contact;
    metno.cacheFolder = service.paths.dataDir();
    MetNoReportSource direct(std::move(metno), upstream, service.clock);

    WeatherRun run;
    run.paths = service.paths;
    run.setup = service.setup;
    run.units = units;
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

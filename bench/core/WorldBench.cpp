#include <benchmark/benchmark.h>

#include "core/WorldFiles.h"
#include "core/ZoneTime.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace {

constexpr int countryCount = 250;
constexpr int citiesPerCountry = 80; // 20,000 cities

// One 20,000-city file set for every benchmark of the run.
const Paths& worldSet() {
    static test::TempDir dir;
    static const Paths paths = [] {
        std::vector<std::pair<std::string, std::vector<City>>> countries;
        for (int c = 0; c < countryCount; ++c) {
            std::vector<City> cities;
            for (int i = 0; i < citiesPerCountry; ++i) {
                City city = test::sampleCity("City " + std::to_string(c) + "-" + std::to_string(i),
                                             (c * 5) % 300, i % 3);
                city.longitude = float(i) * 1.37f - 60.0f;
                city.latitude = float(c % 150) - 70.0f;
                cities.push_back(std::move(city));
            }
            countries.emplace_back("Country " + std::to_string(c), std::move(cities));
        }
        return test::writeWorld(dir.path(), countries);
    }();
    return paths;
}

void LoadCountries(benchmark::State& state) {
    const Paths& paths = worldSet();
    for (auto _ : state) {
        CountryList list;
        loadCountries(paths, list, false);
        benchmark::DoNotOptimize(list.data());
    }
}
BENCHMARK(LoadCountries)->Unit(benchmark::kMicrosecond);

void LoadOneCountrysCities(benchmark::State& state) {
    const Paths& paths = worldSet();
    CountryList list;
    loadCountries(paths, list, false);
    Country& country = list[countryCount / 2];
    for (auto _ : state) {
        country.cities.clear();
        loadCities(paths, country, false);
        benchmark::DoNotOptimize(country.cities.data());
    }
}
BENCHMARK(LoadOneCountrysCities)->Unit(benchmark::kMicrosecond);

void RebuildDataFiles(benchmark::State& state) {
    const Paths& paths = worldSet();
    for (auto _ : state) {
        CountryList list;
        benchmark::DoNotOptimize(rebuildDataFiles(paths, list));
    }
}
BENCHMARK(RebuildDataFiles)->Unit(benchmark::kMillisecond);

void ApplyZone(benchmark::State& state) {
    const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"},
                               {"FirstSunAfter08Mar 02:00", "FirstSunNov 00:59"}};
    std::int32_t minute = 0;
    for (auto _ : state) {
        ZoneTime t;
        t.year = 2026, t.month = 7, t.day = 1, t.weekday = 3;
        t.hour = 12, t.minute = minute = (minute + 1) % 60;
        t.timeZoneIndex = 35;
        t.dstRuleIndex = 2;
        t.ApplyZone(rules);
        benchmark::DoNotOptimize(t);
    }
}
BENCHMARK(ApplyZone);

} // namespace

} // namespace zonara

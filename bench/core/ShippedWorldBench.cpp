// The shipped world files: the first start's rebuild, and loading every
// country with all its cities.

#include <benchmark/benchmark.h>

#include "core/WorldFiles.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace {

// A root folder holding a copy of the shipped files, removed at the end.
struct ShippedCopy {
    zonara::test::TempDir dir;
    zonara::Paths paths = zonara::test::copyShippedWorld(dir.path());

    // The state of a first start: the shipped files and no tstamp.dat.
    void refresh() { zonara::test::copyShippedWorld(dir.path()); }
};

void BM_RebuildShippedWorld(benchmark::State& state) {
    ShippedCopy copy;
    std::size_t cities = 0;
    std::size_t countries = 0;
    for (auto _ : state) {
        state.PauseTiming();
        copy.refresh();
        zonara::CountryList list;
        state.ResumeTiming();
        if (zonara::rebuildDataFiles(copy.paths, list) != zonara::RebuildResult::Done) {
            state.SkipWithError("rebuild failed");
            break;
        }
        countries = list.size();
        cities = 0;
        for (const auto& country : list) {
            cities += country.cities.size();
        }
    }
    state.counters["countries"] = double(countries);
    state.counters["cities"] = double(cities);
}
BENCHMARK(BM_RebuildShippedWorld)->Unit(benchmark::kMillisecond);

void BM_LoadShippedCountriesAndCities(benchmark::State& state) {
    ShippedCopy copy;
    std::size_t cities = 0;
    for (auto _ : state) {
        zonara::CountryList list;
        zonara::loadCountries(copy.paths, list, true);
        cities = 0;
        for (auto& country : list) {
            zonara::loadCities(copy.paths, country, false);
            cities += country.cities.size();
        }
        benchmark::DoNotOptimize(list.data());
    }
    state.counters["cities"] = double(cities);
}
BENCHMARK(BM_LoadShippedCountriesAndCities)->Unit(benchmark::kMillisecond);

} // namespace

// The shipped world files: the first start's rebuild, and loading every
// country with all its cities.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "core/WorldFiles.h"

namespace fs = std::filesystem;

namespace {

fs::path shippedData() {
    // The repository's data/, from $ZONARA_SOURCE_DIR or from where this file lies.
    const char* root = std::getenv("ZONARA_SOURCE_DIR");
    return (root ? fs::path(root) : fs::path(__FILE__).parent_path() / ".." / "..") / "data";
}

// A root folder holding a fresh copy of the shipped files, removed at the end.
class ShippedCopy {
  public:
    ShippedCopy() {
        std::string pattern = (fs::temp_directory_path() / "zonara-bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot create a temporary folder");
        }
        dir = pattern;
        paths = zonara::Paths(dir);
        refresh();
    }
    ~ShippedCopy() {
        std::error_code ignored;
        fs::remove_all(dir, ignored);
    }
    ShippedCopy(const ShippedCopy&) = delete;
    ShippedCopy& operator=(const ShippedCopy&) = delete;

    // The state of a first start: the shipped files and no tstamp.dat.
    void refresh() {
        fs::create_directories(paths.dataDir());
        for (const auto name :
             {zonara::countryFileName, zonara::cityFileName, zonara::daylightFileName}) {
            fs::copy_file(shippedData() / name, paths.dataFile(name),
                          fs::copy_options::overwrite_existing);
        }
        fs::remove(paths.dataFile(zonara::stampFileName));
    }

    zonara::Paths paths;

  private:
    fs::path dir;
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

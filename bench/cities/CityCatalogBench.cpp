// The city catalog on the shipped world files: the first search, which reads
// every country's cities, the searches typed after it, and city lookups.

#include <benchmark/benchmark.h>

#include "cities/CityCatalog.h"
#include "cities/CityLookup.h"
#include "core/WorldFiles.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace {

// A root folder with a copy of the shipped world files.
struct ShippedWorld {
    zonara::test::TempDir dir;
    zonara::Paths paths = zonara::test::copyShippedWorld(dir.path());
};

void BM_FirstSearch(benchmark::State& state) {
    const ShippedWorld world;
    for (auto _ : state) {
        zonara::CityCatalog catalog(world.paths);
        benchmark::DoNotOptimize(catalog.search("syd", 50));
    }
}
BENCHMARK(BM_FirstSearch)->Unit(benchmark::kMillisecond);

// One keystroke's search once everything is read; "a" matches most names.
void BM_Search(benchmark::State& state, const char* text) {
    const ShippedWorld world;
    zonara::CityCatalog catalog(world.paths);
    catalog.search("warm", 1);
    std::size_t hits = 0;
    for (auto _ : state) {
        hits = catalog.search(text, 50).size();
        benchmark::DoNotOptimize(hits);
    }
    state.counters["hits"] = double(hits);
}
BENCHMARK_CAPTURE(BM_Search, syd, "syd")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Search, sao, "sao")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Search, a, "a")->Unit(benchmark::kMicrosecond);

// Finding one city as a command does: an exact name, a unique beginning, a
// beginning several names share, and a misspelling, which weighs every name.
void BM_Lookup(benchmark::State& state, const char* typed) {
    const ShippedWorld world;
    zonara::CityCatalog catalog(world.paths);
    catalog.keyedCities();
    for (auto _ : state) {
        benchmark::DoNotOptimize(zonara::lookupCity(catalog, typed));
    }
}
BENCHMARK_CAPTURE(BM_Lookup, exact, "zurich")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Lookup, prefix, "port au")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Lookup, ambiguous, "san")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Lookup, misspelt, "Zurick")->Unit(benchmark::kMicrosecond);

} // namespace

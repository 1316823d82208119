#include <benchmark/benchmark.h>

#include "globe/MoonPhase.h"
#include "globe/SolarPosition.h"
#include "globe/SunTimes.h"

namespace zonara {
namespace {

// Cities from the equator to near the polar circles, so both the ordinary path and the
// polar early return are timed.
constexpr double places[][2] = {
    {-0.1276, 51.5072}, {151.21, -33.87}, {-74.3, 40.9},   {18.95, 69.65},
    {36.82, -1.29},     {-68.3, -54.8},   {139.69, 35.69}, {-21.94, 64.15},
};

void BM_SunriseSunset(benchmark::State& state) {
    int i = 0;
    for (auto _ : state) {
        const auto& p = places[i % 8];
        const int day = 1 + i % 28;
        const int month = 1 + (i / 8) % 12;
        benchmark::DoNotOptimize(SunriseTime(2026, month, day, p[0], p[1]));
        benchmark::DoNotOptimize(SunsetTime(2026, month, day, p[0], p[1]));
        ++i;
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_SunriseSunset);

void BM_MoonPhaseIndex(benchmark::State& state) {
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(MoonPhaseIndex(1990 + i % 50, 1 + i % 12, 1 + i % 28));
        ++i;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MoonPhaseIndex);

void BM_DeclinationAndHourAngle(benchmark::State& state) {
    int i = 0;
    for (auto _ : state) {
        const double hours = (i % 96) * 0.25;
        benchmark::DoNotOptimize(SolarDeclination(1 + i % 28, 1 + i % 12, 2026, hours));
        benchmark::DoNotOptimize(SunGreenwichHourAngle(1 + i % 28, 1 + i % 12, 2026, hours));
        ++i;
    }
    state.SetItemsProcessed(state.iterations() * 2);
}
BENCHMARK(BM_DeclinationAndHourAngle);

// One globe redraw: a terminator latitude for each of 640 map columns.
void BM_TerminatorPerRedraw(benchmark::State& state) {
    const double declination = SolarDeclination(21, 6, 2026, 12.0);
    const double gha = SunGreenwichHourAngle(21, 6, 2026, 12.0);
    for (auto _ : state) {
        int sum = 0;
        for (int column = 0; column < 640; ++column) {
            const int longitude = column * 360 / 640 - 180;
            sum += TerminatorLatitude(longitude + static_cast<int>(gha), declination);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * 640);
}
BENCHMARK(BM_TerminatorPerRedraw);

} // namespace
} // namespace zonara

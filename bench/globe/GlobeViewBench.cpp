#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <filesystem>

#include "core/Settings.h"
#include "globe/CGlobe.h"
#include "support/BenchQt.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

// The shipped pictures in a root of their own.
const Paths& picturesRoot() {
    static test::TempDir dir;
    static const Paths paths = [] {
        const Paths p(dir.path());
        std::filesystem::copy(test::sourceDir() / "graphics", p.graphicsDir(),
                              std::filesystem::copy_options::recursive);
        return p;
    }();
    return paths;
}

// A globe shown on the offscreen platform, shaded once, on a clock the benchmark moves.
struct ShownGlobe {
    SystemTime utc = *parseIsoUtc("2026-06-21T12:00:00Z");
    Settings settings;
    DstRuleList rules;
    CGlobe view;

    explicit ShownGlobe(const benchmark::State& state)
        : view(ViewSetup{
              picturesRoot(),
              ClockSource::driven([this] { return utc; }, []() -> std::uint64_t { return 1000; }),
              *deviceProfile(int(state.range(0)), int(state.range(1))),
              {}}) {
        view.show();
        view.showSlots(settings, rules);
        QCoreApplication::processEvents();
    }
};

// One second of the shown globe as the window lives it: the tick (the strip's clock worked
// out anew) and the paint that follows, which touches only the strip's face. Arguments: the
// screen's width and height.
void BM_GlobeTick(benchmark::State& state) {
    test::ensureQtApplication();
    ShownGlobe globe(state);
    for (auto _ : state) {
        globe.utc.second = (globe.utc.second + 1) % 60;
        globe.view.tick();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(BM_GlobeTick)->Args({480, 640})->Args({240, 320})->Unit(benchmark::kMicrosecond);

// The five-minute tick: the day picture restored, shaded, the view's map part composed and
// painted. Arguments: the screen's width and height.
void BM_GlobeReshade(benchmark::State& state) {
    test::ensureQtApplication();
    ShownGlobe globe(state);
    for (auto _ : state) {
        globe.utc.minute = (globe.utc.minute + 5) % 60;
        globe.view.Refresh(true);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(BM_GlobeReshade)->Args({480, 640})->Args({240, 320})->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace zonara

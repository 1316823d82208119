#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <filesystem>

#include "clocks/CMultiClock.h"
#include "support/BenchQt.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

// One second of the shown multi-clock page: the tick (four clocks worked out anew) and the
// paint that follows, which touches the four faces only. Arguments: the screen's size.
void BM_MultiClockRepaint(benchmark::State& state) {
    test::ensureQtApplication();
    static test::TempDir dir;
    const Paths paths(dir.path());
    if (!std::filesystem::exists(paths.graphicsDir()))
        std::filesystem::copy(test::sourceDir() / "graphics", paths.graphicsDir(),
                              std::filesystem::copy_options::recursive);
    SystemTime utc = *parseIsoUtc("2026-01-15T12:00:00Z");
    const ClockSource clock =
        ClockSource::driven([&utc] { return utc; }, []() -> std::uint64_t { return 0; });
    CMultiClock page(
        ViewSetup{paths, clock, *deviceProfile(int(state.range(0)), int(state.range(1))), {}});
    page.show();
    Settings settings;
    settings.slots[1].timeZoneIndex = 235;
    settings.slots[2].timeZoneIndex = 35;
    settings.slots[3].timeZoneIndex = 190;
    const DstRuleList rules;
    page.showSlots(settings, rules);
    QCoreApplication::processEvents();
    for (auto _ : state) {
        utc.second = (utc.second + 1) % 60;
        page.tick();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(BM_MultiClockRepaint)->Args({480, 640})->Args({240, 320})->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace zonara

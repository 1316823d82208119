#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

#include "app/frame/CMainFrame.h"
#include "clocks/CClockDetails.h"
#include "core/DeviceProfile.h"
#include "core/WorldFiles.h"
#include "support/BenchQt.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {

namespace {

// The shipped world files and skins, copied once into a root of their own.
const Paths& shippedRoot() {
    static test::TempDir dir;
    static const Paths paths = [] {
        const Paths p = test::copyShippedWorld(dir.path());
        std::filesystem::copy(test::sourceDir() / "graphics", p.graphicsDir(),
                              std::filesystem::copy_options::recursive);
        CountryList list; // prepared once, as after the first start
        rebuildDataFiles(p, list);
        return p;
    }();
    return paths;
}

// From constructing the main frame to the first full clock drawn off-screen:
// what the window does before its first painted clock.
void FrameStartToFirstClock(benchmark::State& state) {
    test::ensureQtApplication();
    const Paths& paths = shippedRoot();
    const auto profile = deviceProfile(int(state.range(0)), int(state.range(1)));
    for (auto _ : state) {
        CMainFrame frame(paths, ClockSource::system(), *profile);
        frame.deferredStart();
        benchmark::DoNotOptimize(frame.fullClock()->renderImage());
    }
}
BENCHMARK(FrameStartToFirstClock)
    ->Args({480, 640})
    ->Args({240, 320})
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace zonara

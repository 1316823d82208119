#include <benchmark/benchmark.h>

#include "controls/PixelSurface.h"
#include "core/Settings.h"
#include "globe/DayNight.h"
#include "globe/GlobeDrawing.h"
#include "globe/GlobeModel.h"

namespace zonara {
namespace {

SystemTime utcAt(int y, int mo, int d, int h) {
    SystemTime t;
    t.year = y, t.month = mo, t.day = d, t.hour = h;
    return t;
}

// One full pass as a re-shade does it: the day picture restored, then shaded. Arguments:
// map width, and the month (6: solstice, the night reaching a pole; 3: equinox).
void BM_ShadingPass(benchmark::State& state) {
    const int w = int(state.range(0));
    const int h = w / 2;
    const MemorySurface day(w, h, rgb(30, 90, 160));
    const MemorySurface night(w, h, rgb(10, 10, 40));
    MemorySurface map = day;
    const SystemTime utc = utcAt(2026, int(state.range(1)), 21, 12);
    for (auto _ : state) {
        map = day;
        DrawDayNight(map, night, utc);
        benchmark::DoNotOptimize(map.getPixel(0, 0));
    }
    state.SetItemsProcessed(state.iterations() * w * h);
}
BENCHMARK(BM_ShadingPass)->Args({640, 6})->Args({640, 3})->Args({320, 6})->Args({320, 3});

// The view's picture after a scroll: the map pieces and four markers at 480 x 320.
void BM_GlobeViewPicture(benchmark::State& state) {
    const MemorySurface map(640, 320, rgb(30, 90, 160));
    MemorySurface marker(13, 13, markerKeyColour);
    marker.setPixel(6, 6, rgb(220, 20, 30));
    Settings settings;
    GlobeModel model(480, 640, 320);
    model.attach(settings);
    model.setScrollOffset(400); // two pieces
    MemorySurface view(480, 320);
    for (auto _ : state) {
        drawGlobeView(view, map, marker, model);
        benchmark::DoNotOptimize(view.getPixel(0, 0));
    }
}
BENCHMARK(BM_GlobeViewPicture);

} // namespace
} // namespace zonara

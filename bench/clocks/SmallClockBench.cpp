#include <benchmark/benchmark.h>

#include "clocks/MultiClockLayout.h"
#include "clocks/SmallClock.h"
#include "clocks/SmallClockLayout.h"
#include "core/Settings.h"

namespace zonara {
namespace {

// What the multi-clock page works out once a second: four clocks' texts, day or night
// and hands against the selected slot, and their layouts.
void BM_MultiClockTick(benchmark::State& state) {
    const DstRuleList rules = {{"LastSunMar 01:00", "LastSunOct 00:59"}};
    Settings settings;
    settings.slots[1].timeZoneIndex = 190;
    settings.slots[1].dstRuleIndex = 0;
    settings.slots[2].timeZoneIndex = 290;
    settings.slots[3].timeZoneIndex = 2;
    SystemTime utc;
    utc.year = 2026, utc.month = 1, utc.day = 15, utc.hour = 12;
    const MultiClockLayout page = layoutMultiClock(480, 640, 28);
    int second = 0;
    for (auto _ : state) {
        utc.second = second++ % 60;
        for (std::size_t i = 0; i < 4; ++i) {
            const ClockSlot* reference =
                int(i) == settings.selectedSlot ? nullptr : &settings.slots[0];
            const SmallClockState clock =
                smallClockState(settings.slots[i], reference, utc, rules, true);
            const SmallClockLayout layout =
                layoutSmallClock(page.cells[i], page.face.size, page.face.sizeValue, page.mode, 28);
            benchmark::DoNotOptimize(smallClockHands(layout.centre, layout.radius, clock.local));
            benchmark::DoNotOptimize(clock.texts.time.size());
        }
    }
    state.SetItemsProcessed(state.iterations() * 4);
}
BENCHMARK(BM_MultiClockTick);

} // namespace
} // namespace zonara

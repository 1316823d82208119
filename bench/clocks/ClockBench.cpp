// One repaint of each clock at the 480x640 profile's sizes.

#include <QImage>
#include <benchmark/benchmark.h>

#include "support/BenchQt.h"

#include "clocks/AnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "controls/QImageSurface.h"

namespace {

using namespace zonara;

QImage clockFace(int width, int height) {
    QImage face(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            face.setPixel(x, y, qRgb(200 + x % 40, 190 + y % 50, 180));
    return face;
}

// A 300x300 clock window (radius 140) on the 480x640 screen: the face is
// copied from the background picture, then the three hands are blended in.
void BM_AnalogueRepaint(benchmark::State& state) {
    const int radius = int(state.range(0));
    const QImage background = clockFace(480, 640);
    QImage buffer(300, 300, QImage::Format_RGB32);
    AnalogueClock clock;
    clock.setRadius(radius);
    clock.applyClientSize(300, 300);
    clock.setHourColour(rgb(20, 20, 20));
    clock.setMinuteColour(rgb(20, 20, 60));
    int tick = 0;
    for (auto _ : state) {
        buffer = background.copy(90, 120, 300, 300);
        QImageSurface surface(buffer);
        clock.setTime(tick / 3600 % 12, tick / 60 % 60, tick % 60);
        clock.drawHands(surface);
        benchmark::DoNotOptimize(buffer.constBits());
        tick += 61;
    }
}
BENCHMARK(BM_AnalogueRepaint)->Arg(100)->Arg(140);

// The geometry and the blending alone, without the face copy.
void BM_AnalogueHandsOnly(benchmark::State& state) {
    MemorySurface surface(300, 300, rgb(230, 230, 220));
    AnalogueClock clock;
    clock.setRadius(140);
    clock.applyClientSize(300, 300);
    clock.setTime(10, 8, 40);
    for (auto _ : state) {
        clock.drawHands(surface);
        benchmark::DoNotOptimize(surface.getPixel(150, 150));
    }
}
BENCHMARK(BM_AnalogueHandsOnly);

// A 440x80 six-digit clock with the AM/PM pair, painted with QPainter.
void BM_DigitalRepaint(benchmark::State& state) {
    test::ensureQtApplication();
    CDigitalClock clock;
    clock.resize(440, 80);
    clock.setColours(
        {rgb(253, 88, 27), rgb(30, 30, 30), rgb(255, 160, 120), rgb(40, 40, 40), rgb(0, 0, 0)});
    QImage target(440, 80, QImage::Format_RGB32);
    int tick = 0;
    for (auto _ : state) {
        clock.setTime(tick / 3600 % 24, tick / 60 % 60, tick % 60);
        clock.renderTo(target);
        benchmark::DoNotOptimize(target.constBits());
        tick += 61;
    }
}
BENCHMARK(BM_DigitalRepaint);

void BM_DigitalLayout(benchmark::State& state) {
    int tick = 0;
    for (auto _ : state) {
        const DigitalClockFace face =
            layoutDigitalClock(440, 80, tick / 3600 % 24, tick / 60 % 60, tick % 60, 3, false);
        benchmark::DoNotOptimize(face.segments.data());
        tick += 61;
    }
}
BENCHMARK(BM_DigitalLayout);

} // namespace

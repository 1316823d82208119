// One tick of the full clock view at 480x640: texts, changed fields, both clocks, moon phase.

#include <QImage>
#include <benchmark/benchmark.h>

#include "clocks/CClockDetails.h"
#include "clocks/FullClockTexts.h"
#include "support/BenchQt.h"
#include "support/TempDir.h"

namespace {

using namespace zonara;

// All 13 fields shown, both clocks and the moon phase, as a busy skin has them.
constexpr const char* scheme = R"(<scheme><mainclock>
  <background img="back.png"/>
  <country state="show" font-size="10" font-weight="bold" font-color="#FFFFFF"
           rect="10,10,470,50" align="center"/>
  <city rect="10,50,470,90"/>
  <time font-size="20" font-color="#FFD070" rect="250,100,470,160" align="center"/>
  <date font-size="9" rect="10,420,470,450" style="long"/>
  <airportcode rect="330,560,470,600"/>
  <dialcode rect="330,500,470,540"/>
  <GMToffset rect="10,500,160,540"/>
  <timezonedescription rect="10,450,470,480"/>
  <daylightSaving rect="170,500,320,540"/>
  <sunrise rect="10,560,160,600"/>
  <sunset rect="170,560,320,600"/>
  <ampm rect="250,160,470,190"/>
  <inettime rect="250,280,470,310"/>
  <clock state="show" rect="10,100,240,330" radius="110"/>
  <dig_clock state="show" rect="40,340,440,410" fillOn="#FFD070" fillOff="#302010"
             borderOn="#FFD070" borderOff="#302010" backFill="#101820"/>
  <moonphase state="show" img="moon.png" rect="320,200,380,260" size="60,60"/>
</mainclock></scheme>)";

struct Fixture {
    test::TempDir root;
    Paths paths{root.path()};
    DstRuleList rules{{"LastSunMar 01:00", "LastSunOct 00:59"}};

    Fixture() {
        test::ensureQtApplication();
        std::filesystem::create_directories(paths.graphicsDir());
        QImage back(480, 640, QImage::Format_RGB32);
        for (int y = 0; y < 640; ++y)
            for (int x = 0; x < 480; ++x)
                back.setPixel(x, y, qRgb(10 + x / 8, 30 + y / 10, 80));
        back.save(QString::fromStdString(paths.graphicsFile("back.png").string()));
        QImage moon(480, 60, QImage::Format_ARGB32);
        moon.fill(qRgba(230, 230, 200, 255));
        moon.save(QString::fromStdString(paths.graphicsFile("moon.png").string()));
        test::writeFile(paths.graphicsFile("busy_480x640.xml"), scheme);
    }
};

ClockSlot otherCity() {
    ClockSlot slot;
    slot.countryName = u"Japan";
    slot.cityName = u"Tokyo";
    slot.airportCode = u"HND";
    slot.dialCode = u"+81 3";
    slot.timeZoneIndex = 235;
    slot.dstRuleIndex = 0;
    slot.longitude = 139.69f;
    slot.latitude = 35.69f;
    return slot;
}

// A tick on which every field changes: the city alternates, so all texts are
// recomputed and all 13 fields are erased and drawn again, with both clocks.
void BM_FullClockRepaint(benchmark::State& state) {
    Fixture fixture;
    CClockDetails view(fixture.paths, ClockSource::fixedAt(*parseIsoUtc("2026-06-21T13:45:20Z")),
                       *deviceProfile(480, 640));
    view.setRules(&fixture.rules);
    view.applySkin("busy");
    const ClockSlot cities[2] = {ClockSlot{}, otherCity()};
    int i = 0;
    for (auto _ : state) {
        view.setCity(cities[++i % 2]);
        benchmark::DoNotOptimize(view.renderImage());
    }
}
BENCHMARK(BM_FullClockRepaint)->Unit(benchmark::kMicrosecond);

// An ordinary tick: the texts are recomputed, nothing changed but the clocks.
void BM_FullClockQuietTick(benchmark::State& state) {
    Fixture fixture;
    CClockDetails view(fixture.paths, ClockSource::fixedAt(*parseIsoUtc("2026-06-21T13:45:20Z")),
                       *deviceProfile(480, 640));
    view.setRules(&fixture.rules);
    view.applySkin("busy");
    view.renderImage();
    for (auto _ : state) {
        view.Refresh();
        benchmark::DoNotOptimize(view.renderImage());
    }
}
BENCHMARK(BM_FullClockQuietTick)->Unit(benchmark::kMicrosecond);

// The 13 texts alone.
void BM_FullClockTexts(benchmark::State& state) {
    const DstRuleList rules{{"LastSunMar 01:00", "LastSunOct 00:59"}};
    const SystemTime utc = *parseIsoUtc("2026-06-21T13:45:20Z");
    const ClockSlot city;
    for (auto _ : state)
        benchmark::DoNotOptimize(fullClockTexts(city, utc, rules, false, {}));
}
BENCHMARK(BM_FullClockTexts);

} // namespace

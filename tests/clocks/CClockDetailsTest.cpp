#include "clocks/CClockDetails.h"

#include <QCoreApplication>
#include <QImage>
#include <QPaintEvent>
#include <gtest/gtest.h>
#include <memory>

#include "clocks/CAnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/FullClockTexts.h"
#include "controls/QImageSurface.h"
#include "support/PixelCount.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::countPixels;
using test::TempDir;
using test::writeFile;

const QRgb backColour = qRgb(20, 30, 60);
const QRgb white = qRgb(255, 255, 255);
const QRgb yellow = qRgb(255, 255, 0);
const QRgb green = qRgb(0, 255, 0);

QRgb moonCellColour(int i) {
    return qRgb(i * 30, 200, 100);
}

// Every field but airportcode and dialcode shown; clocks and moon phase too.
constexpr const char* fullScheme = R"(<scheme><mainclock>
  <background img="back.png"/>
  <country state="show" font-size="10" font-weight="bold" font-color="#FFFFFF"
           rect="10,10,470,50" align="center"/>
  <city rect="10,60,470,100"/>
  <time font-color="#FFFF00" rect="10,110,240,160" align="left"/>
  <date rect="240,110,470,160" style="long" align="right"/>
  <airportcode state="hide" rect="10,200,470,230"/>
  <dialcode rect="10,230,470,240"/>
  <GMToffset state="show" style="long" font-weight="normal" rect="10,170,470,200"/>
  <timezonedescription rect="10,400,470,430"/>
  <daylightSaving style="long" rect="10,430,470,460"/>
  <sunrise rect="10,600,200,640"/>
  <sunset rect="200,600,400,640"/>
  <ampm font-color="#00FF00" rect="400,560,470,600"/>
  <inettime rect="10,560,200,600"/>
  <clock state="show" rect="140,240,340,400" radius="70"/>
  <dig_clock state="show" rect="100,470,380,540" fillOn="#FF0000" fillOff="#400000"
             borderOn="#FF0000" borderOff="#400000" backFill="#000000"/>
  <moonphase state="show" img="moon.png" rect="420,600,460,640" size="40,40"/>
</mainclock></scheme>)";

// Only one field, no clocks, no moon phase, and a picture that is not there.
constexpr const char* plainScheme = R"(<scheme><mainclock>
  <background img="missing.png"/>
  <city state="show" font-size="8" font-color="#FFFF00" rect="0,0,480,40"/>
  <country/>
  <clock state="hide"/>
</mainclock></scheme>)";

class CClockDetailsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        QImage back(480, 640, QImage::Format_RGB32);
        back.fill(backColour);
        std::filesystem::create_directories(paths.graphicsDir());
        ASSERT_TRUE(back.save(QString::fromStdString(paths.graphicsFile("back.png").string())));
        QImage strip(8 * 40, 40, QImage::Format_RGB32);
        for (int i = 0; i < 8; ++i)
            for (int y = 0; y < 40; ++y)
                for (int x = 0; x < 40; ++x)
                    strip.setPixel(i * 40 + x, y, moonCellColour(i));
        ASSERT_TRUE(strip.save(QString::fromStdString(paths.graphicsFile("moon.png").string())));
        writeFile(paths.graphicsFile("full_480x640.xml"), fullScheme);
        writeFile(paths.graphicsFile("plain_480x640.xml"), plainScheme);
    }

    // A full moon in London at 23:30 BST: 22:30:15 UTC.
    std::unique_ptr<CClockDetails> view(const char* skin, bool use24Hour = false) {
        auto v = std::make_unique<CClockDetails>(paths, clock, *deviceProfile(480, 640));
        v->setRules(&rules);
        v->setUse24Hour(use24Hour);
        v->applySkin(skin);
        return v;
    }

    TempDir root;
    Paths paths{root.path()};
    DstRuleList rules{{"LastSunMar 01:00", "LastSunOct 00:59"}};
    ClockSource clock = ClockSource::fixedAt(*parseIsoUtc("2024-04-23T22:30:15Z"));
};

TEST_F(CClockDetailsTest, FieldsShowTheirTextsInTheirColoursOverTheBackground) {
    auto v = view("full");
    const auto& fields = v->fields();
    // The styles come from the skin: long date and offset, short time.
    EXPECT_EQ(fields[TimeSlot].text, "11:30");
    EXPECT_EQ(fields[DateSlot].text, "Tuesday, April 23, 2024");
    EXPECT_EQ(fields[GmtOffsetSlot].text, "GMT offset 00:00");
    EXPECT_EQ(fields[InternetTimeSlot].text, "@979");
    EXPECT_FALSE(fields[AirportCodeSlot].shown);
    // Ten points at 192 dots per inch: 26 pixels; the weight follows the skin.
    EXPECT_EQ(v->fieldFont(fields[CitySlot]).pixelSize(), 26);
    EXPECT_EQ(v->fieldFont(fields[CitySlot]).weight(), QFont::Bold);
    EXPECT_EQ(v->fieldFont(fields[GmtOffsetSlot]).weight(), QFont::Medium);

    const QImage image = v->renderImage();
    ASSERT_EQ(image.size(), QSize(480, 640));
    for (std::size_t slot : {CountrySlot, CitySlot, DateSlot, GmtOffsetSlot, InternetTimeSlot,
                             SunriseSlot, SunsetSlot, AmPmSlot}) {
        SCOPED_TRACE(textFieldNames[slot]);
        const SkinRect& r = fields[slot].rect;
        const QRect box(r.left, r.top, r.right - r.left, r.bottom - r.top);
        // Colours pass on from field to field: country and city white, time to
        // sunset yellow, ampm and inettime green.
        const QRgb ink = slot >= AmPmSlot ? green : slot <= CitySlot ? white : yellow;
        EXPECT_GT(countPixels(image, box, ink), 20);
        // The rest of the box is background or the anti-aliased edge between.
        EXPECT_GT(countPixels(image, box, backColour), box.width() * box.height() / 3);
    }
    // Centred, left and right alignment put the ink where the flags say.
    const auto inkColumns = [&](std::size_t slot, QRgb ink) {
        const SkinRect& r = fields[slot].rect;
        int first = r.right, last = r.left;
        for (int x = r.left; x < r.right; ++x)
            if (countPixels(image, QRect(x, r.top, 1, r.bottom - r.top), ink) > 0)
                first = std::min(first, x), last = std::max(last, x);
        return std::pair(first - r.left, r.right - 1 - last);
    };
    const auto [countryLeft, countryRight] = inkColumns(CountrySlot, white);
    EXPECT_LE(std::abs(countryLeft - countryRight), 3);
    EXPECT_LT(inkColumns(TimeSlot, yellow).first, 5);
    EXPECT_LT(inkColumns(DateSlot, yellow).second, 5);
    // Hidden fields leave the background alone.
    EXPECT_EQ(countPixels(image, QRect(10, 200, 460, 40), backColour), 460 * 40);
}

TEST_F(CClockDetailsTest, TwentyFourHourModeNeitherDrawsNorErasesAmPm) {
    auto v = view("full", true);
    EXPECT_EQ(v->fields()[TimeSlot].text, "23:30");
    const QRect ampm(400, 560, 70, 40);
    QImage image = v->renderImage();
    EXPECT_EQ(countPixels(image, ampm, backColour), 70 * 40);
    // Back to 12 hours: the field appears; and goes again with a fresh drawing.
    v->setUse24Hour(false);
    image = v->renderImage();
    EXPECT_GT(countPixels(image, ampm, green), 20);
    v->setUse24Hour(true);
    image = v->renderImage();
    EXPECT_EQ(countPixels(image, ampm, backColour), 70 * 40);
}

TEST_F(CClockDetailsTest, DrawsBothClocksAndTheMoonFromTheSkin) {
    auto v = view("full");
    ASSERT_NE(v->analogueClock(), nullptr);
    ASSERT_NE(v->digitalClock(), nullptr);
    EXPECT_EQ(v->analogueClock()->geometry(), QRect(140, 240, 200, 160));
    EXPECT_EQ(v->digitalClock()->geometry(), QRect(100, 470, 280, 70));
    // 23:30:15 on the 12-hour dial.
    const AnalogueClock& analogue = v->analogueClock()->engine();
    EXPECT_EQ(std::tuple(analogue.hour(), analogue.minute(), analogue.second(), analogue.radius()),
              std::tuple(11, 30, 15, 70));
    EXPECT_EQ(v->digitalClock()->engine().hour(), 23);

    const QImage image = v->renderImage();
    // The analogue clock's area is exactly what the clock draws over the background.
    const QImage face = v->analogueClock()->render();
    int differences = 0;
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x)
            differences += image.pixel(140 + x, 240 + y) != face.pixel(x, y);
    EXPECT_EQ(differences, 0);
    // The digital clock: lit and unlit segments on its own black fill.
    const QRect segments(100, 470, 280, 70);
    EXPECT_GT(countPixels(image, segments, qRgb(255, 0, 0)), 200);
    EXPECT_GT(countPixels(image, segments, qRgb(64, 0, 0)), 200);
    EXPECT_GT(countPixels(image, segments, qRgb(0, 0, 0)), 200);
    EXPECT_EQ(countPixels(image, segments, backColour), 0);
    // The full moon is cell 4 of the strip, drawn at the skin's place.
    ASSERT_EQ(v->moonPhase(), 4);
    EXPECT_EQ(countPixels(image, QRect(420, 600, 40, 40), moonCellColour(4)), 40 * 40);
    EXPECT_EQ(countPixels(image, QRect(410, 600, 60, 40), backColour), 60 * 40 - 40 * 40);
}

TEST_F(CClockDetailsTest, ChangedFieldsAreRedrawnOverTheBackground) {
    auto v = view("full");
    v->renderImage();
    for (const TextField& field : v->fields())
        EXPECT_TRUE(!field.shown || !field.dirty);

    ClockSlot paris;
    paris.countryName = u"France";
    paris.cityName = u"Paris";
    paris.timeZoneIndex = 105; // Romance, +01:00
    paris.dstRuleIndex = 1;
    paris.longitude = 2.35f;
    paris.latitude = 48.85f;
    v->setCity(paris);
    EXPECT_TRUE(v->fields()[CitySlot].dirty);
    EXPECT_FALSE(v->fields()[InternetTimeSlot].dirty);
    const QImage updated = v->renderImage();

    // Only what changed was drawn, and the old texts are gone without trace.
    auto fresh = std::make_unique<CClockDetails>(paths, clock, *deviceProfile(480, 640));
    fresh->setRules(&rules);
    fresh->setCity(paris);
    fresh->applySkin("full");
    EXPECT_EQ(updated, fresh->renderImage());
    EXPECT_EQ(v->fields()[CitySlot].text, "Paris");
}

TEST_F(CClockDetailsTest, WhatTheSkinLacksIsNotDrawn) {
    auto v = view("full");
    // A missing picture: black under the one field; a skin without clocks removes them.
    v->applySkin("plain");
    EXPECT_EQ(v->analogueClock(), nullptr);
    EXPECT_EQ(v->digitalClock(), nullptr);
    const auto& fields = v->fields();
    EXPECT_FALSE(fields[CountrySlot].shown);
    // The fields after city inherit its "show".
    EXPECT_TRUE(fields[TimeSlot].shown);
    QImage image = v->renderImage();
    EXPECT_GT(countPixels(image, QRect(0, 0, 480, 40), yellow), 20);
    EXPECT_EQ(countPixels(image, QRect(0, 300, 480, 340), qRgb(0, 0, 0)), 480 * 340);
    // The moon phase follows inettime's "show", but without a picture draws nothing.
    EXPECT_EQ(v->moonPhase(), 4);

    // No scheme for the screen at all: nothing shown.
    v->applySkin("nosuch");
    for (const TextField& field : v->fields())
        EXPECT_FALSE(field.shown);
    EXPECT_EQ(v->analogueClock(), nullptr);
    image = v->renderImage();
    EXPECT_EQ(countPixels(image, image.rect(), qRgb(0, 0, 0)), 480 * 640);
}

TEST_F(CClockDetailsTest, SizeAndFontFollowTheProfile) {
    writeFile(paths.graphicsFile("full_240x320.xml"), fullScheme);
    CClockDetails small(paths, clock, *deviceProfile(240, 320));
    EXPECT_TRUE(small.refreshTimer().isActive());
    EXPECT_EQ(small.nextTickDelay(), 1000); // a fixed clock is looked at once a second
    small.applySkin("full");
    EXPECT_EQ(small.size(), QSize(240, 320));
    TextField odd;
    odd.fontSize = 7; // 7·96/72 = 9.33, truncated
    EXPECT_EQ(small.fieldFont(odd).pixelSize(), 9);
}

// The regions the view asks to repaint, as paint events deliver them.
class PaintLog : public QObject {
  public:
    std::vector<QRect> rects;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            rects.push_back(static_cast<QPaintEvent*>(event)->rect());
        return false;
    }
};

// A clock source the test moves by hand, in milliseconds since 1970.
ClockSource movedBy(std::shared_ptr<std::int64_t> now) {
    return ClockSource::driven(
        [now] {
            SystemTime t = systemTimeFromUnix(*now / 1000);
            t.milliseconds = std::int32_t(*now % 1000);
            return t;
        },
        [now] { return std::uint64_t(*now); });
}

TEST_F(CClockDetailsTest, TicksOnTheSecondShowEachSecondOnceWhileTheTimerWanders) {
    // 22:30:15.700 UTC; timers fire up to 3 ms early and 40 ms late.
    auto now = std::make_shared<std::int64_t>(
        unixFromSystemTime(*parseIsoUtc("2024-04-23T22:30:15Z")) * 1000 + 700);
    CClockDetails v(paths, movedBy(now), *deviceProfile(480, 640));
    v.setRules(&rules);
    v.applySkin("full");
    EXPECT_EQ(v.nextTickDelay(), 304); // just past 22:30:16
    const int lateness[] = {-3, 0, 40, 17, 1, 39, 25, -2, 33, 8};
    std::vector<int> seconds;
    for (int i = 0; i < 120; ++i) {
        *now += v.nextTickDelay() + lateness[i % 10];
        v.tick();
        seconds.push_back(v.localTime().minute * 60 + v.localTime().second);
    }
    for (std::size_t i = 1; i < seconds.size(); ++i)
        ASSERT_EQ(seconds[i], seconds[i - 1] + 1) << "tick " << i;
}

TEST_F(CClockDetailsTest, ARefreshRepaintsOnlyWhatChanged) {
    auto now = std::make_shared<std::int64_t>(
        unixFromSystemTime(*parseIsoUtc("2024-04-23T22:30:15Z")) * 1000);
    CClockDetails v(paths, movedBy(now), *deviceProfile(480, 640));
    v.setRules(&rules);
    v.applySkin("full");
    v.show();
    QCoreApplication::processEvents();
    PaintLog log;
    for (QWidget* w : {static_cast<QWidget*>(&v), static_cast<QWidget*>(v.analogueClock()),
                       static_cast<QWidget*>(v.digitalClock())})
        w->installEventFilter(&log);

    v.Refresh(); // the same second: nothing to draw
    QCoreApplication::processEvents();
    EXPECT_TRUE(log.rects.empty());

    // One second on: the digital clock's seconds change and the hands move;
    // the fields and the rest of both clocks stay.
    *now += 1000;
    v.Refresh();
    QCoreApplication::processEvents();
    ASSERT_FALSE(log.rects.empty());
    int area = 0;
    for (const QRect& r : log.rects)
        area += r.width() * r.height();
    EXPECT_LT(area, 480 * 640 / 4);
}

} // namespace
} // namespace zonara

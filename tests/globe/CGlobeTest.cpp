#include "globe/CGlobe.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <gtest/gtest.h>
#include <memory>

#include "clocks/CSmallClock.h"
#include "controls/QImageSurface.h"
#include "globe/DayNight.h"
#include "globe/GlobeDrawing.h"
#include "support/PixelCount.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::countPixels;
using test::TempDir;

// Plain colours make every shaded and copied pixel predictable.
const QRgb dayColour = qRgb(40, 110, 200);
const QRgb nightColour = qRgb(10, 12, 40);
const QRgb markerMiddle = qRgb(230, 20, 40);
const QRgb faceColour = qRgb(20, 28, 44);

void savePicture(const Paths& paths, const std::string& name, int w, int h, QRgb colour,
                 const char* format) {
    QImage picture(w, h, QImage::Format_RGB32);
    picture.fill(colour);
    ASSERT_TRUE(picture.save(QString::fromStdString(paths.graphicsFile(name).string()), format));
}

// The map pairs at their sizes, the faces and a 9x9 marker: key colour around a red middle.
void writePictures(const Paths& paths) {
    std::filesystem::create_directories(paths.graphicsDir());
    for (const auto& [w, h] : {std::pair{640, 320}, std::pair{320, 160}}) {
        const std::string size = std::to_string(w) + "x" + std::to_string(h);
        // Lossless pictures under the shipped names; the loader goes by the content.
        savePicture(paths, "daymap_" + size + ".jpg", w, h, dayColour, "PNG");
        savePicture(paths, "nightmap_" + size + ".jpg", w, h, nightColour, "PNG");
    }
    for (const int side : {42, 56, 64, 128}) {
        const std::string size = std::to_string(side);
        savePicture(paths, "clock" + size + "x" + size + ".jpg", side, side, faceColour, "PNG");
    }
    QImage marker(9, 9, QImage::Format_RGB32);
    marker.fill(qRgb(255, 165, 30));
    for (int y = 3; y < 6; ++y)
        for (int x = 3; x < 6; ++x)
            marker.setPixel(x, y, markerMiddle);
    ASSERT_TRUE(marker.save(QString::fromStdString(paths.graphicsFile("marker.bmp").string())));
}

// London, Tokyo, a city on the date line, Honolulu; Tokyo selected.
Settings fourCities() {
    Settings s;
    const float places[4][2] = {
        {-0.06f, 51.51f}, {139.69f, 35.69f}, {-180.0f, -16.5f}, {-157.86f, 21.31f}};
    const std::u16string names[4] = {u"London", u"Tokyo", u"Suva", u"Honolulu"};
    for (std::size_t i = 0; i < 4; ++i) {
        s.slots[i].cityName = names[i];
        s.slots[i].longitude = places[i][0];
        s.slots[i].latitude = places[i][1];
        s.slots[i].dstRuleIndex = 0;
    }
    s.slots[1].timeZoneIndex = 235;
    s.selectedSlot = 1;
    return s;
}

// A clock whose time and tick count the test moves.
struct DrivenClock {
    SystemTime utc = *parseIsoUtc("2026-06-21T12:00:00Z");
    std::uint64_t ticks = 1000;
    ClockSource source() {
        return ClockSource::driven([this] { return utc; }, [this] { return ticks; });
    }
};

class CGlobeTest : public ::testing::Test {
  protected:
    void SetUp() override { writePictures(paths); }

    // Shown and given its slots as the frame does, but never mapped on a screen.
    std::unique_ptr<CGlobe> globe(int w, int h, bool second = false) {
        auto view = std::make_unique<CGlobe>(
            ViewSetup{paths, clock.source(), *deviceProfile(w, h, second), {}});
        view->Show();
        view->showSlots(settings, rules);
        return view;
    }

    TempDir root;
    Paths paths{root.path()};
    DrivenClock clock;
    Settings settings = fourCities();
    DstRuleList rules;
};

TEST_F(CGlobeTest, PicturesAndStripFollowTheScreen) {
    struct Row {
        int w, h;
        bool second;
        QSize map;
        QRect strip;
        int layoutMode;
        int stripFace; // the face side the strip lays out
    };
    const Row rows[] = {
        {480, 640, false, {640, 320}, {0, 320, 480, 320}, 1, 128},
        {640, 480, false, {640, 320}, {0, 320, 640, 160}, 4, 128},
        {240, 320, false, {320, 160}, {0, 160, 240, 160}, 1, 64},
        {320, 240, false, {320, 160}, {0, 160, 320, 80}, 4, 64},
        {176, 220, false, {320, 160}, {0, 160, 176, 60}, 1, 64},
        {480, 640, true, {320, 160}, {0, 160, 480, 480}, 4, 64},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(std::to_string(r.w) + "x" + std::to_string(r.h) + (r.second ? " second" : ""));
        auto view = globe(r.w, r.h, r.second);
        EXPECT_EQ(view->mapImage().size(), r.map);
        EXPECT_EQ(view->strip()->geometry(), r.strip);
        EXPECT_EQ(view->stripLayoutMode(), r.layoutMode);
        // The face fits the strip: its own side, or less where the strip is lower.
        const PixelRect face = view->strip()->layout().face;
        EXPECT_LE(face.width(), r.stripFace);
        EXPECT_GT(face.width(), 0);
        EXPECT_LE(face.bottom, r.strip.height());
        // The strip shows the selected city without a difference to itself.
        EXPECT_EQ(view->strip()->state().texts.name, "Tokyo");
        EXPECT_EQ(view->strip()->state().texts.difference, "");
    }
}

TEST_F(CGlobeTest, KeysScrollOrReachTheFrame) {
    // The frame stands behind the view and records the keys that reach it.
    struct Frame : QWidget {
        std::vector<int> keys;
        void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    } frame;
    auto view = std::make_unique<CGlobe>(
        ViewSetup{paths, clock.source(), *deviceProfile(480, 640), {}}, &frame);
    view->Show();
    view->showSlots(settings, rules);
    struct Row {
        int startScroll;
        int key;
        const char* text;
        int scroll;
        bool reachesFrame;
    };
    const Row rows[] = {
        {5, Qt::Key_Left, "", 630, false}, // W - 10, not the wrapped 635
        {20, Qt::Key_Left, "", 10, false},
        {635, Qt::Key_Right, "", 0, false},
        {100, Qt::Key_Right, "", 110, false},
        {100, Qt::Key_Up, "", 100, true}, // the frame steps the slot
        {100, Qt::Key_Down, "", 100, true},
        {100, Qt::Key_2, "2", 100, true}, // the frame switches the view
        {100, Qt::Key_3, "3", 100, true},
        {100, Qt::Key_1, "1", 100, false},
        {100, Qt::Key_A, "a", 100, false},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.key);
        frame.keys.clear();
        view->setScrollOffset(r.startScroll);
        QKeyEvent press(QEvent::KeyPress, r.key, Qt::NoModifier, r.text);
        QCoreApplication::sendEvent(view.get(), &press);
        EXPECT_EQ(view->model().scrollOffset(), r.scroll);
        EXPECT_EQ(frame.keys, r.reachesFrame ? std::vector<int>{r.key} : std::vector<int>{});
        // The view never changes the slot itself.
        EXPECT_EQ(view->model().selectedSlot(), 1);
    }
}

TEST_F(CGlobeTest, NewSlotsCentreOnlyWhenTheSelectedSlotChanges) {
    auto view = globe(480, 640);
    // Tokyo: column trunc(319.69 * 640 / 360) = 568, less half the view.
    EXPECT_EQ(view->model().scrollOffset(), 568 - 240);
    view->setScrollOffset(0);
    settings.slots[1].cityName = u"Osaka"; // same slot, another city: no centring
    view->showSlots(settings, rules);
    EXPECT_EQ(view->model().scrollOffset(), 0);
    EXPECT_EQ(view->strip()->state().texts.name, "Osaka");
    settings.selectedSlot = 2; // the date line: column 0, so 0 - 240 + 640
    view->showSlots(settings, rules);
    EXPECT_EQ(view->model().scrollOffset(), 400);
    EXPECT_EQ(view->strip()->state().texts.name, "Suva");
}

TEST_F(CGlobeTest, FirstPaintAfterShowingSaysItIsCalculating) {
    auto view = globe(480, 640);
    const QRect middle(0, 140, 480, 40); // the text's band in the middle of the map
    const QRgb white = qRgb(255, 255, 255);
    EXPECT_GT(countPixels(view->grab().toImage(), middle, white), 50);
    EXPECT_EQ(countPixels(view->grab().toImage(), middle, white), 0);
    // Showing again brings it back once more.
    view->Hide();
    view->Show();
    view->showSlots(settings, rules);
    EXPECT_GT(countPixels(view->grab().toImage(), middle, white), 50);
    EXPECT_EQ(countPixels(view->grab().toImage(), middle, white), 0);
}

TEST_F(CGlobeTest, ShadesAgainOnlyAfterFiveMinutesOfTicks) {
    auto view = globe(240, 320);
    ASSERT_EQ(view->shadingCount(), 1);
    // Noon at Greenwich: at 45 degrees north the night lies around the date line, the
    // map's edges.
    ASSERT_EQ(view->mapImage().pixel(0, 40), nightColour);
    ASSERT_EQ(view->mapImage().pixel(160, 40), dayColour);
    struct Row {
        std::uint64_t ticks;
        const char* utc;
        int shadings;
        QRgb atMiddle; // 45 degrees north on the map's middle column
    };
    const Row rows[] = {
        {1000 + 300000, "2026-06-21T23:00:00Z", 1, dayColour}, // the clock only
        {1000 + 300001, "2026-06-21T23:00:00Z", 2, nightColour},
        {1000 + 301001, "2026-06-21T12:00:00Z", 2, nightColour},
        {301001 + 300000, "2026-06-21T12:00:00Z", 2, nightColour},
        {301001 + 300001, "2026-06-21T12:00:00Z", 3, dayColour},
        // The 32-bit tick count wraps: what counts is the time since the last shading.
        {(std::uint64_t(1) << 32) - 1000, "2026-06-21T23:00:00Z", 4, nightColour},
        {(std::uint64_t(1) << 32) + 100, "2026-06-21T12:00:00Z", 4, nightColour},
        {(std::uint64_t(1) << 32) + 299001, "2026-06-21T12:00:00Z", 5, dayColour},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.ticks);
        clock.ticks = r.ticks;
        clock.utc = *parseIsoUtc(r.utc);
        view->tick();
        EXPECT_EQ(view->shadingCount(), r.shadings);
        EXPECT_EQ(view->mapImage().pixel(160, 40), r.atMiddle);
        // The strip's clock follows every tick.
        EXPECT_EQ(view->strip()->state().local.hour, (clock.utc.hour + 9) % 24);
    }
}

TEST_F(CGlobeTest, RenderShowsTheShadedMapMarkersAndStripAsTheWindowDoes) {
    auto view = globe(480, 640);
    view->grab(); // the busy text's paint
    const QImage shown = view->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage drawn = view->renderImage();
    ASSERT_EQ(drawn.size(), QSize(480, 640));
    EXPECT_EQ(shown, drawn);

    // The map part is the shading of the same pictures at the same instant.
    QImage day(640, 320, QImage::Format_RGB32), night(640, 320, QImage::Format_RGB32);
    day.fill(dayColour);
    night.fill(nightColour);
    QImageSurface daySurface(day), nightSurface(night);
    DrawDayNight(daySurface, nightSurface, clock.utc);
    EXPECT_EQ(view->mapImage(), day);

    // Tokyo is centred and drawn whole, key colour and all; the other markers lose it.
    const int scroll = view->model().scrollOffset();
    const QRgb key = qRgb(255, 165, 30);
    const QRect tokyo(240 - 4, mapRowOf(35.69f, 320) - 4, 9, 9);
    EXPECT_EQ(countPixels(drawn, tokyo, key), 72);
    EXPECT_EQ(countPixels(drawn, tokyo, markerMiddle), 9);
    // Honolulu, west of the date line, comes after the wrap.
    const QRect honolulu(640 - scroll + mapColumnOf(-157.86f, 640) - 4, mapRowOf(21.31f, 320) - 4,
                         9, 9);
    ASSERT_TRUE(QRect(0, 0, 480, 320).contains(honolulu));
    EXPECT_EQ(countPixels(drawn, honolulu, key), 0);
    EXPECT_EQ(countPixels(drawn, honolulu, markerMiddle), 9);
    // Below the map, the strip.
    EXPECT_EQ(drawn.copy(view->strip()->geometry()),
              view->strip()->grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST_F(CGlobeTest, MissingPicturesLeaveAUsableView) {
    std::filesystem::remove_all(paths.graphicsDir());
    auto view = globe(240, 320);
    EXPECT_TRUE(view->mapImage().isNull());
    // No map: the strip takes the whole view, and the keys still work.
    EXPECT_EQ(view->strip()->geometry(), QRect(0, 0, 240, 320));
    EXPECT_EQ(view->strip()->state().texts.name, "Tokyo");
    const QImage drawn = view->renderImage();
    EXPECT_EQ(drawn.size(), QSize(240, 320));
    view->tick();
    EXPECT_EQ(view->shadingCount(), 1);
}

TEST_F(CGlobeTest, TicksOnlyWhileShown) {
    QWidget window;
    auto* view =
        new CGlobe(ViewSetup{paths, clock.source(), *deviceProfile(240, 320), {}}, &window);
    view->showSlots(settings, rules);
    EXPECT_FALSE(view->refreshTimer().isActive());
    window.show();
    EXPECT_TRUE(view->refreshTimer().isActive());
    // Shown without new slots from a frame, it shades with the ones it holds.
    QCoreApplication::processEvents();
    EXPECT_EQ(view->shadingCount(), 1);
    EXPECT_FALSE(view->mapImage().isNull());
    view->hide();
    EXPECT_FALSE(view->refreshTimer().isActive());
    EXPECT_TRUE(view->mapImage().isNull()); // released
}

} // namespace
} // namespace zonara

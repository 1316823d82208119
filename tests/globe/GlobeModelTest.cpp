#include "globe/GlobeModel.h"

#include <gtest/gtest.h>

#include "controls/PixelCopy.h"
#include "core/Settings.h"
#include "globe/GlobeDrawing.h"

namespace zonara {
namespace {

DeviceProfile profileOf(int width, int height, bool second = false) {
    return *deviceProfile(width, height, second);
}

Settings fourCities() {
    Settings s;
    const float places[4][2] = {
        {-0.06f, 51.51f},   // London
        {139.69f, 35.69f},  // Tokyo
        {-180.0f, -16.5f},  // on the date line
        {-157.86f, 21.31f}, // Honolulu
    };
    for (std::size_t i = 0; i < 4; ++i) {
        s.slots[i].longitude = places[i][0];
        s.slots[i].latitude = places[i][1];
    }
    return s;
}

TEST(GlobeModel, PicturesAndStripByScreen) {
    struct Row {
        int width, height;
        bool second;
        const char* dayMap;
        const char* face;
        int sizeValue;
    };
    const Row rows[] = {
        {480, 640, false, "daymap_640x320.jpg", "clock128x128.jpg", 60},
        {640, 480, false, "daymap_640x320.jpg", "clock128x128.jpg", 60},
        {240, 320, false, "daymap_320x160.jpg", "clock64x64.jpg", 30},
        {320, 240, false, "daymap_320x160.jpg", "clock64x64.jpg", 30},
        {176, 220, false, "daymap_320x160.jpg", "clock64x64.jpg", 30},
        {480, 640, true, "daymap_320x160.jpg", "clock64x64.jpg", 26},
        {240, 320, true, "daymap_320x160.jpg", "clock42x42.jpg", 20},
    };
    for (const Row& r : rows) {
        const DeviceProfile profile = profileOf(r.width, r.height, r.second);
        EXPECT_EQ(mapPairFor(profile).dayFile, r.dayMap) << r.width << "x" << r.height;
        const ClockFace face = stripClockFaceFor(profile);
        EXPECT_EQ(face.file, r.face) << r.width << "x" << r.height << " " << r.second;
        EXPECT_EQ(face.sizeValue, r.sizeValue) << r.width << "x" << r.height << " " << r.second;
    }

    // Square screens have faces of their own.
    DeviceProfile square{480, 480, 192, true, false};
    EXPECT_EQ(stripClockFaceFor(square), (ClockFace{"clock128x128.jpg", 128, 56}));
    square = {240, 240, 96, false, false};
    EXPECT_EQ(stripClockFaceFor(square), (ClockFace{"clock56x56.jpg", 56, 25}));
}

TEST(GlobeModel, StripBelowTheMap) {
    struct Row {
        int width, height, menuBar, mapHeight;
        bool second;
        StripLayout expected;
    };
    const Row rows[] = {
        {480, 640, 0, 320, false, {{0, 320, 480, 640}, 0, 1}},
        {240, 320, 0, 160, false, {{0, 160, 240, 320}, 0, 1}},
        {176, 220, 26, 160, false, {{0, 160, 176, 194}, 0, 1}},
        {640, 480, 0, 320, false, {{0, 320, 640, 480}, 3, 4}},
        {240, 240, 0, 160, false, {{0, 160, 240, 240}, 3, 4}},
        {480, 640, 0, 160, true, {{0, 160, 480, 640}, 3, 4}},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(stripLayoutFor(r.width, r.height, r.menuBar, r.mapHeight, r.second), r.expected)
            << r.width << "x" << r.height << " second " << r.second;
    }
    EXPECT_EQ(globeFontPixels(96), 12);
    EXPECT_EQ(globeFontPixels(192), 24);
}

TEST(GlobeModel, Keys) {
    struct Row {
        int key;
        int scrollBefore, slotBefore;
        KeyOutcome outcome;
        int scrollAfter, slotAfter; // scroll -1: centred on the new slot, checked apart
        const char* why;
    };
    const Row rows[] = {
        {KeyLeft, 100, 0, KeyOutcome::Scrolled, 90, 0, "ten columns left"},
        {KeyLeft, 10, 0, KeyOutcome::Scrolled, 0, 0, "to the edge"},
        {KeyLeft, 5, 0, KeyOutcome::Scrolled, 630, 0, "past it: W - 10, not W - 5"},
        {KeyRight, 629, 0, KeyOutcome::Scrolled, 639, 0, "short of the end"},
        {KeyRight, 635, 0, KeyOutcome::Scrolled, 0, 0, "past it: 0, not 5"},
        {KeyUp, 7, 2, KeyOutcome::SlotChanged, -1, 1, "slot up"},
        {KeyUp, 7, 0, KeyOutcome::SlotChanged, -1, 3, "from the first to the last"},
        {KeyDown, 7, 3, KeyOutcome::SlotChanged, -1, 0, "from the last to the first"},
        {KeyTwo, 7, 1, KeyOutcome::PassedToParent, 7, 1, "'2' goes to the frame"},
        {49, 7, 1, KeyOutcome::Ignored, 7, 1, "'1' does nothing here"},
    };
    for (const Row& r : rows) {
        Settings settings = fourCities();
        settings.selectedSlot = r.slotBefore;
        GlobeModel model(480, 640, 320);
        model.attach(settings);
        model.setScrollOffset(r.scrollBefore);
        EXPECT_EQ(model.key(r.key), r.outcome) << r.why;
        EXPECT_EQ(settings.selectedSlot, r.slotAfter) << r.why;
        if (r.scrollAfter >= 0) {
            EXPECT_EQ(model.scrollOffset(), r.scrollAfter) << r.why;
        } else {
            GlobeModel centred(480, 640, 320);
            centred.attach(settings);
            centred.centreOnSelected();
            EXPECT_EQ(model.scrollOffset(), centred.scrollOffset()) << r.why;
        }
    }
}

TEST(GlobeModel, CentringOnTheSelectedCity) {
    struct Row {
        float longitude;
        int clientWidth, mapWidth;
        int scroll;
    };
    const Row rows[] = {
        // (lon + 180) * 1.7777778 truncated, less half the view.
        {-0.06f, 480, 640, 319 - 240},
        {139.69f, 480, 640, 568 - 240},
        {-157.86f, 480, 640, 39 - 240 + 640}, // negative: a map width on
        {-180.0f, 480, 640, 400},
        {180.0f, 480, 640, 640 - 240}, // the right edge is column W
        {0.0f, 176, 320, 160 - 88},
        {0.0f, 175, 320, 160 - 87}, // the half of an odd width rounds down
    };
    for (const Row& r : rows) {
        Settings settings = fourCities();
        settings.slots[1].longitude = r.longitude;
        settings.selectedSlot = 1;
        GlobeModel model(r.clientWidth, r.mapWidth, r.mapWidth / 2);
        model.attach(settings);
        model.centreOnSelected();
        EXPECT_EQ(model.scrollOffset(), r.scroll) << r.longitude << " on " << r.clientWidth;
    }
}

TEST(GlobeModel, MarkerPositions) {
    Settings settings = fourCities();
    settings.selectedSlot = 1;
    GlobeModel model(480, 640, 320);
    model.attach(settings);

    struct Row {
        int scroll;
        PixelPoint centres[4];
    };
    // Rows: (90 - lat) * 1.7777778: London 68, Tokyo 96, date line 189, Honolulu 122.
    const Row rows[] = {
        // The date-line city is at column 0, below 1, so it moves to the right end.
        {0, {{319, 68}, {568, 96}, {640, 189}, {39, 122}}},
        {400, {{319 - 400 + 640, 68}, {168, 96}, {240, 189}, {39 - 400 + 640, 122}}},
        // A marker at exactly column 1 of the view stays there.
        {38, {{281, 68}, {530, 96}, {602, 189}, {1, 122}}},
        {39, {{280, 68}, {529, 96}, {601, 189}, {640, 122}}},
    };
    for (const Row& r : rows) {
        model.setScrollOffset(r.scroll);
        const auto markers = model.markers(13, 11);
        ASSERT_EQ(markers.size(), 4u);
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(markers[i].centre, r.centres[i]) << "scroll " << r.scroll << " slot " << i;
            EXPECT_EQ(markers[i].topLeft, (PixelPoint{r.centres[i].x - 6, r.centres[i].y - 5}));
            EXPECT_EQ(markers[i].opaque, i == 1);
        }
    }
    GlobeModel unattached(480, 640, 320);
    EXPECT_TRUE(unattached.markers(13, 13).empty());
}

TEST(GlobeModel, MapPiecesWrapAround) {
    struct Row {
        int clientWidth, mapWidth, scroll;
        std::vector<MapPiece> pieces;
    };
    const Row rows[] = {
        {480, 640, 0, {{0, 480, 0}}},
        {480, 640, 159, {{159, 480, 0}}},
        // Reaching the end exactly already takes two pieces, the second empty.
        {480, 640, 160, {{160, 480, 0}, {0, 0, 480}}},
        {480, 640, 400, {{400, 240, 0}, {0, 240, 240}}},
        {176, 320, 300, {{300, 20, 0}, {0, 156, 20}}},
        {480, 0, 0, {}},
    };
    for (const Row& r : rows) {
        GlobeModel model(r.clientWidth, r.mapWidth, r.mapWidth / 2);
        model.setScrollOffset(r.scroll);
        EXPECT_EQ(model.mapPieces(), r.pieces) << r.scroll << " on " << r.mapWidth;
    }
}

TEST(GlobeModel, ShadingTicksAndBusyText) {
    GlobeModel model(480, 640, 320);
    EXPECT_TRUE(model.busy());
    EXPECT_TRUE(model.takeBusy());
    EXPECT_FALSE(model.takeBusy());

    model.setScrollOffset(200);
    model.show(1000);
    EXPECT_EQ(model.scrollOffset(), 0);
    EXPECT_TRUE(model.takeBusy());

    struct Row {
        std::uint32_t now;
        RefreshKind kind;
        std::uint32_t lastAfter;
    };
    const Row rows[] = {
        {2000, RefreshKind::Clock, 1000},
        {301000, RefreshKind::Clock, 1000}, // five minutes exactly: not yet
        {301001, RefreshKind::Full, 301001},
        {302001, RefreshKind::Clock, 301001},
        {601002, RefreshKind::Full, 601002},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(model.tick(r.now), r.kind) << r.now;
        EXPECT_EQ(model.lastShadeTick(), r.lastAfter) << r.now;
    }
    model.restartTimer(900000);
    EXPECT_EQ(model.tick(1000000), RefreshKind::Clock);

    // Near the 32-bit wrap the sum wraps first, and every tick shades until the count
    // itself has wrapped.
    model.restartTimer(0xFFFF0000u);
    EXPECT_EQ(model.tick(0xFFFF0001u), RefreshKind::Full);
    EXPECT_EQ(model.tick(5), RefreshKind::Clock);
}

// A map whose every pixel tells its own column and row.
MemorySurface numberedMap(int width, int height) {
    MemorySurface map(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            map.setPixel(x, y, rgb(std::uint8_t(x), std::uint8_t(y), 7));
        }
    }
    return map;
}

TEST(GlobeDrawing, MapPiecesAndKeyedMarkers) {
    const MemorySurface map = numberedMap(20, 10);
    // A 3 x 3 marker: key colour but for a red centre.
    MemorySurface marker(3, 3, markerKeyColour);
    const ColorRef red = rgb(220, 20, 30);
    marker.setPixel(1, 1, red);

    Settings settings = fourCities();
    settings.slots[0] = settings.slots[2]; // two cities on the date line: one selected
    settings.slots[1].longitude = 90.0f;   // column 15, row 5
    settings.slots[1].latitude = 0.0f;
    settings.slots[3].longitude = -117.0f; // column 3, so 3 - 15 + 20 = 8 in the view
    settings.slots[3].latitude = -72.0f;   // row 9, the last: the marker is cut off below
    settings.selectedSlot = 2;
    GlobeModel model(12, 20, 10);
    model.attach(settings);
    model.setScrollOffset(15);

    MemorySurface view(12, 10, rgb(1, 2, 3));
    drawGlobeView(view, map, marker, model);

    struct Row {
        int x, y;
        ColorRef colour;
        const char* why;
    };
    const Row rows[] = {
        {0, 3, rgb(15, 3, 7), "first piece from column 15"},
        {4, 0, rgb(19, 0, 7), "to the map's last column"},
        {5, 0, rgb(0, 0, 7), "then column 0"},
        {11, 9, rgb(6, 9, 7), "to the view's edge"},
        // Slot 1 at column 15 - 15 = 0, below 1: drawn at 20, outside the view.
        {0, 5, rgb(15, 5, 7), "slot 1 not drawn at the left edge"},
        // The date-line cities: column 0 - 15 + 20 = 5, row trunc(106.5 * 0.0555) = 5.
        {5, 5, red, "date-line marker's centre"},
        {4, 4, markerKeyColour, "the selected one keeps its key colour"},
        {6, 6, markerKeyColour, "in every corner"},
        {8, 9, red, "slot 3's centre on the last row"},
        {7, 8, rgb(2, 8, 7), "its key colour leaves the map"},
        {9, 9, rgb(4, 9, 7), "on both sides"},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(view.getPixel(r.x, r.y), r.colour) << r.why;
    }
}

} // namespace
} // namespace zonara

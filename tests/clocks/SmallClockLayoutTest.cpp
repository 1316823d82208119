#include "clocks/SmallClockLayout.h"

#include <gtest/gtest.h>

#include "clocks/MultiClockLayout.h"

namespace zonara {
namespace {

const PixelRect none{};

TEST(SmallClockLayout, Modes) {
    struct Row {
        const char* what;
        PixelRect area;
        int faceSize, sizeValue, mode, lineHeight;
        PixelRect face;
        int radius;
        PixelRect name, cue, time, date, difference;
    };
    const Row rows[] = {
        {"480x640 strip: face beside four lines",
         {0, 0, 480, 320},
         128,
         60,
         FaceBeside,
         24,
         {6, 96, 134, 224},
         60,
         {146, 112, 474, 136},
         {146, 136, 170, 160},
         {176, 136, 474, 160},
         {146, 160, 474, 184},
         {146, 184, 474, 208}},
        {"176x220 strip: the face shrinks to the height, three lines fit, no date",
         {0, 160, 176, 220},
         64,
         30,
         FaceBeside,
         14,
         {3, 163, 57, 217},
         25,
         {63, 169, 173, 183},
         {63, 183, 77, 197},
         {80, 183, 173, 197},
         none,
         {63, 197, 173, 211}},
        {"640x480 strip: two columns",
         {0, 320, 640, 480},
         128,
         60,
         FaceBesideWide,
         24,
         {6, 336, 134, 464},
         60,
         {146, 376, 384, 400},
         {146, 400, 170, 424},
         {176, 400, 384, 424},
         {390, 376, 634, 400},
         {390, 400, 634, 424}},
        {"one row only: name and time",
         {0, 0, 320, 20},
         64,
         30,
         FaceBesideWide,
         14,
         {3, 3, 17, 17},
         6,
         {23, 3, 167, 17},
         {170, 3, 184, 17},
         {187, 3, 317, 17},
         none,
         none},
        {"face above, lines below",
         {0, 0, 160, 200},
         64,
         30,
         FaceAbove,
         14,
         {48, 3, 112, 67},
         30,
         {3, 70, 157, 84},
         {3, 84, 17, 98},
         {20, 84, 157, 98},
         {3, 98, 157, 112},
         {3, 112, 157, 126}},
        {"an unknown mode lays out beside",
         {0, 0, 240, 80},
         64,
         30,
         7,
         14,
         {3, 8, 67, 72},
         30,
         {73, 12, 237, 26},
         {73, 26, 87, 40},
         {90, 26, 237, 40},
         {73, 40, 237, 54},
         {73, 54, 237, 68}},
    };
    for (const Row& r : rows) {
        const SmallClockLayout l =
            layoutSmallClock(r.area, r.faceSize, r.sizeValue, r.mode, r.lineHeight);
        EXPECT_EQ(l.face, r.face) << r.what;
        EXPECT_EQ(l.centre,
                  (PixelPoint{r.face.left + r.face.width() / 2, r.face.top + r.face.height() / 2}))
            << r.what;
        EXPECT_EQ(l.radius, r.radius) << r.what;
        EXPECT_EQ(l.name, r.name) << r.what;
        EXPECT_EQ(l.cue, r.cue) << r.what;
        EXPECT_EQ(l.time, r.time) << r.what;
        EXPECT_EQ(l.date, r.date) << r.what;
        EXPECT_EQ(l.difference, r.difference) << r.what;
        EXPECT_EQ(l.centred, r.mode == FaceAbove) << r.what;
    }
}

TEST(MultiClockLayout, FillsTheViewAtEveryProfile) {
    struct Row {
        int width, height, lineHeight;
        PixelRect second, fourth; // cells 1 and 3
        int faceSize;
    };
    const Row rows[] = {
        {480, 640, 28, {0, 160, 480, 320}, {0, 480, 480, 640}, 128},
        {240, 320, 14, {0, 80, 240, 160}, {0, 240, 240, 320}, 64},
        {176, 220, 14, {0, 55, 176, 110}, {0, 165, 176, 220}, 42},
        {640, 480, 28, {320, 0, 640, 240}, {320, 240, 640, 480}, 128},
        {320, 240, 14, {160, 0, 320, 120}, {160, 120, 320, 240}, 64},
        {175, 101, 14, {87, 0, 175, 50}, {87, 50, 175, 101}, 42},
    };
    for (const Row& r : rows) {
        const MultiClockLayout l = layoutMultiClock(r.width, r.height, r.lineHeight);
        EXPECT_EQ(l.cells[0].left, 0);
        EXPECT_EQ(l.cells[0].top, 0);
        EXPECT_EQ(l.cells[1], r.second) << r.width << "x" << r.height;
        EXPECT_EQ(l.cells[3], r.fourth) << r.width << "x" << r.height;
        EXPECT_EQ(l.face.size, r.faceSize) << r.width << "x" << r.height;
        // The clocks of the profile fit beside their texts.
        const SmallClockLayout clock =
            layoutSmallClock(l.cells[0], l.face.size, l.face.sizeValue, l.mode, r.lineHeight);
        EXPECT_EQ(clock.face.width(), l.face.size) << r.width << "x" << r.height;
        EXPECT_GT(clock.difference.height(), 0) << r.width << "x" << r.height;
    }
}

TEST(MultiClockLayout, ClicksAndSelection) {
    const MultiClockLayout l = layoutMultiClock(640, 480, 28);
    struct Row {
        PixelPoint at;
        int slot;
    };
    const Row rows[] = {
        {{319, 239}, 0}, {{320, 239}, 1}, {{319, 240}, 2}, {{639, 479}, 3}, {{640, 10}, -1},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(multiClockSlotAt(l, r.at), r.slot) << r.at.x << "," << r.at.y;
    }
    EXPECT_EQ(selectionFrame(l.cells[3]), (PixelRect{321, 241, 639, 479}));
}

} // namespace
} // namespace zonara

#include "clocks/DigitalClock.h"

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

// Which segments are lit, the colon dots and the AM/PM pair are checked on
// rendered pixels in the widget test; this pins the arithmetic behind them.
TEST(DigitalClockLayout, HourConversion) {
    struct Case {
        int hour;
        std::uint32_t flags;
        bool use24Hour;
        int shown;
    };
    for (const Case c :
         {Case{0, 3, false, 12}, Case{1, 3, false, 1}, Case{12, 3, false, 12},
          Case{13, 3, false, 1}, Case{23, 3, false, 11}, Case{0, 3, true, 0}, Case{13, 3, true, 13},
          Case{0, 9, false, 0}, Case{13, 9, false, 13}, Case{24, 3, false, 12}})
        EXPECT_EQ(displayHour(c.hour, c.flags, c.use24Hour), c.shown)
            << c.hour << " flags " << c.flags << " 24h " << c.use24Hour;
}

TEST(DigitalClockLayout, BoxesSegmentsAndDots) {
    // W 300: colon gap 21, spacing 6, digit 36; H 100: boxes from 2 to 98.
    const auto boxes = digitBoxes(300, 100);
    const int lefts[6] = {6, 48, 105, 147, 204, 246};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(boxes[std::size_t(i)], (PixelRect{lefts[i], 2, lefts[i] + 36, 98})) << i;
    // Small widths truncate each measure on its own.
    EXPECT_EQ(digitBoxes(99, 49)[2], (PixelRect{30, 0, 41, 49})); // 2·(1 + 11) + 6

    const PixelRect box{6, 2, 42, 98}; // q 9, hh 48, hq 4
    const std::pair<Segment, PixelRect> rects[] = {
        {Segment::Top, {12, 2, 36, 11}},         {Segment::UpperLeft, {6, 6, 15, 50}},
        {Segment::LowerLeft, {6, 50, 15, 94}},   {Segment::Bottom, {12, 89, 36, 98}},
        {Segment::LowerRight, {33, 50, 42, 94}}, {Segment::UpperRight, {33, 6, 42, 50}},
        {Segment::Middle, {12, 46, 36, 54}}};
    for (const auto& [segment, rect] : rects)
        EXPECT_EQ(segmentRect(box, segment), rect) << int(segment);
    EXPECT_EQ(
        segmentPolygon({12, 2, 36, 11}, true),
        (std::array<PixelPoint, 6>{{{12, 6}, {16, 2}, {32, 2}, {36, 6}, {32, 11}, {16, 11}}}));
    EXPECT_EQ(
        segmentPolygon({6, 6, 15, 50}, false),
        (std::array<PixelPoint, 6>{{{10, 6}, {15, 10}, {15, 46}, {10, 50}, {6, 46}, {6, 10}}}));

    // Dots of radius 21/4 = 5 at 3·(100>>3) = 36 and 72.
    const DigitalClockFace face = layoutDigitalClock(300, 100, 13, 45, 7, 3, false);
    ASSERT_EQ(face.dots.size(), 4u);
    EXPECT_EQ(face.dots[3].bounds(), (PixelRect{188, 67, 198, 77}));
    EXPECT_EQ(face.segments[7].points, segmentPolygon(segmentRect(boxes[1], Segment::Top), true));

    // A field above 99 draws no segments for its digits: 123 gives 3 and 12 (skipped);
    // −5 splits into 0 (drawn) and −5 (not drawn).
    const DigitalClockFace big = layoutDigitalClock(300, 100, 123, 5, 0, 8, false);
    ASSERT_EQ(big.segments.size(), 21u);
    EXPECT_EQ(big.segments.front().digit, 1);
    const DigitalClockFace negative = layoutDigitalClock(300, 100, 1, -5, 0, 8, false);
    ASSERT_EQ(negative.segments.size(), 21u);
    EXPECT_EQ(negative.segments.back().digit, 2);
}

TEST(DigitalClockScheme, ReadsColoursInOrderAndStopsOnHiddenState) {
    test::TempDir dir;
    const auto file = dir.path() / "skin.xml";
    const auto read = [&](const std::string& element, DigitalClock& clock, SkinRect& rect) {
        test::writeFile(file, "<scheme><mainclock>" + element + "</mainclock></scheme>");
        CXMLParser parser;
        EXPECT_TRUE(found(parser.Create()));
        EXPECT_TRUE(found(parser.Load(file)));
        return clock.readScheme(parser, "scheme/mainclock", rect);
    };
    DigitalClock clock;
    SkinRect rect;
    ASSERT_TRUE(read(R"(<dig_clock state="SHOW" rect="4,300,236,340" fillOn="#FF8000"
        fillOff="#202020" borderOn="#FFFFFF" borderOff="#101010" backFill="#000010"/>)",
                     clock, rect));
    EXPECT_EQ(rect, (SkinRect{4, 300, 236, 340}));
    EXPECT_EQ(clock.colours(),
              (DigitalClockColours{rgb(255, 128, 0), rgb(32, 32, 32), rgb(255, 255, 255),
                                   rgb(16, 16, 16), rgb(0, 0, 16)}));

    // Missing keys keep what the clock held.
    ASSERT_TRUE(read(R"(<dig_clock state="show" fillOff="#00FF00"/>)", clock, rect));
    EXPECT_EQ(rect, (SkinRect{4, 300, 236, 340}));
    EXPECT_EQ(clock.colours().fillOn, rgb(255, 128, 0));
    EXPECT_EQ(clock.colours().fillOff, rgb(0, 255, 0));

    for (const char* element :
         {R"(<dig_clock state="off" fillOn="#00FF00"/>)", R"(<dig_clock fillOn="#00FF00"/>)"}) {
        DigitalClock none;
        EXPECT_FALSE(read(element, none, rect)) << element;
        EXPECT_EQ(none.colours().fillOn, 0u);
    }
}

} // namespace
} // namespace zonara

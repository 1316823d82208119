#include "clocks/DigitalClock.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

TEST(DigitalClockLayout, TwelveHourConversion) {
    struct Case {
        int hour;
        std::uint32_t flags;
        bool use24Hour;
        int shown;
    };
    for (const Case c :
         {Case{0, 3, false, 12}, Case{1, 3, false, 1}, Case{12, 3, false, 12},
          Case{13, 3, false, 1}, Case{23, 3, false, 11}, Case{0, 3, true, 0}, Case{13, 3, true, 13},
          Case{0, 9, false, 0}, Case{13, 9, false, 13}, Case{24, 3, false, 12}}) {
        EXPECT_EQ(displayHour(c.hour, c.flags, c.use24Hour), c.shown)
            << c.hour << " flags " << c.flags << " 24h " << c.use24Hour;
    }
}

TEST(DigitalClockLayout, DigitBoxesTakeRoomForSixDigits) {
    // W 300: colon gap 21, spacing 6, digit 36; H 100: boxes from 2 to 98.
    const auto boxes = digitBoxes(300, 100);
    const int lefts[6] = {6, 48, 105, 147, 204, 246};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(boxes[std::size_t(i)], (PixelRect{lefts[i], 2, lefts[i] + 36, 98})) << i;
    // Small widths truncate each measure on its own.
    const auto narrow = digitBoxes(99, 49);
    EXPECT_EQ(narrow[0], (PixelRect{1, 0, 12, 49}));
    EXPECT_EQ(narrow[2], (PixelRect{30, 0, 41, 49})); // 2·(1 + 11) + 6
}

TEST(DigitalClockLayout, SegmentRectanglesAndPolygons) {
    const PixelRect box{6, 2, 42, 98}; // q 9, hh 48, hq 4
    EXPECT_EQ(segmentRect(box, Segment::Top), (PixelRect{12, 2, 36, 11}));
    EXPECT_EQ(segmentRect(box, Segment::UpperLeft), (PixelRect{6, 6, 15, 50}));
    EXPECT_EQ(segmentRect(box, Segment::LowerLeft), (PixelRect{6, 50, 15, 94}));
    EXPECT_EQ(segmentRect(box, Segment::Bottom), (PixelRect{12, 89, 36, 98}));
    EXPECT_EQ(segmentRect(box, Segment::LowerRight), (PixelRect{33, 50, 42, 94}));
    EXPECT_EQ(segmentRect(box, Segment::UpperRight), (PixelRect{33, 6, 42, 50}));
    EXPECT_EQ(segmentRect(box, Segment::Middle), (PixelRect{12, 46, 36, 54}));

    const auto h = segmentPolygon({12, 2, 36, 11}, true);
    const std::array<PixelPoint, 6> horizontal{
        {{12, 6}, {16, 2}, {32, 2}, {36, 6}, {32, 11}, {16, 11}}};
    EXPECT_EQ(h, horizontal);
    const auto v = segmentPolygon({6, 6, 15, 50}, false);
    const std::array<PixelPoint, 6> vertical{
        {{10, 6}, {15, 10}, {15, 46}, {10, 50}, {6, 46}, {6, 10}}};
    EXPECT_EQ(v, vertical);
}

TEST(DigitalClockLayout, SegmentsComeDigitByDigitInDrawingOrder) {
    // Which segments are lit is checked on rendered pixels in the widget test.
    const DigitalClockFace face = layoutDigitalClock(300, 100, 20, 34, 56, 3, false);
    ASSERT_EQ(face.segments.size(), 42u);
    const auto boxes = digitBoxes(300, 100);
    for (std::size_t k = 0; k < face.segments.size(); ++k) {
        const SegmentShape& s = face.segments[k];
        EXPECT_EQ(s.digit, int(k / 7));
        EXPECT_EQ(s.segment, segmentOrder[k % 7]);
        EXPECT_EQ(s.rect, segmentRect(boxes[std::size_t(s.digit)], s.segment));
        EXPECT_EQ(s.points, segmentPolygon(s.rect, isHorizontal(s.segment)));
    }
    // 08:34:56: an 8 lights all seven, a 0 all but the middle.
    EXPECT_EQ(std::count_if(face.segments.begin() + 7, face.segments.begin() + 14,
                            [](const SegmentShape& s) { return s.lit; }),
              7);
    EXPECT_FALSE(face.segments[6].lit);
}

TEST(DigitalClockLayout, FourDigitsKeepTheSixDigitPositions) {
    const DigitalClockFace six = layoutDigitalClock(300, 100, 13, 45, 7, 3, false);
    const DigitalClockFace four = layoutDigitalClock(300, 100, 13, 45, 7, 2, false);
    ASSERT_EQ(four.segments.size(), 28u);
    for (std::size_t k = 0; k < four.segments.size(); ++k) {
        EXPECT_EQ(four.segments[k].points, six.segments[k].points);
        EXPECT_EQ(four.segments[k].lit, six.segments[k].lit);
    }
    // Dots of radius 21/4 = 5 at 3·(100>>3) = 36 and 72; gaps centred at 84+10 and 183+10.
    ASSERT_EQ(six.dots.size(), 4u);
    ASSERT_EQ(four.dots.size(), 2u);
    EXPECT_EQ(six.dots[0].centre, (PixelPoint{94, 36}));
    EXPECT_EQ(six.dots[1].centre, (PixelPoint{94, 72}));
    EXPECT_EQ(six.dots[2].centre, (PixelPoint{193, 36}));
    EXPECT_EQ(six.dots[3].centre, (PixelPoint{193, 72}));
    EXPECT_EQ(six.dots[0].radius, 5);
    EXPECT_EQ(six.dots[0].bounds(), (PixelRect{89, 31, 99, 41}));
    EXPECT_EQ(four.dots[1].centre, six.dots[1].centre);
}

TEST(DigitalClockLayout, AmPmPairFollowsTheStoredHour) {
    struct Case {
        int hour;
        bool use24Hour;
        bool amLit;
    };
    for (const Case c : {Case{0, false, true}, Case{11, false, true}, Case{12, false, false},
                         Case{13, false, false}, Case{0, true, true}, Case{23, true, false}}) {
        const DigitalClockFace face = layoutDigitalClock(300, 100, c.hour, 0, 0, 3, c.use24Hour);
        ASSERT_EQ(face.texts.size(), 2u);
        EXPECT_EQ(face.texts[0].text, "AM");
        EXPECT_EQ(face.texts[0].rect, (PixelRect{288, 2, 300, 100}));
        EXPECT_EQ(face.texts[0].lit, c.amLit) << c.hour;
        EXPECT_EQ(face.texts[1].text, "PM");
        EXPECT_EQ(face.texts[1].rect, (PixelRect{288, 12, 300, 100}));
        EXPECT_EQ(face.texts[1].lit, !c.amLit) << c.hour;
    }
    // The stopwatch's flags: seconds, no conversion, no pair.
    const DigitalClockFace stopwatch = layoutDigitalClock(300, 100, 0, 1, 2, 9, false);
    EXPECT_TRUE(stopwatch.texts.empty());
    EXPECT_FALSE(stopwatch.segments[6].lit); // a leading 0 has no middle segment
}

TEST(DigitalClockLayout, DigitsAboveNineDrawNothing) {
    const DigitalClockFace face = layoutDigitalClock(300, 100, 123, 5, 0, 8, false);
    ASSERT_EQ(face.segments.size(), 21u);
    EXPECT_EQ(face.segments.front().digit, 1); // 123 % 10 = 3, 123 / 10 = 12 is skipped
    const DigitalClockFace negative = layoutDigitalClock(300, 100, 1, -5, 0, 8, false);
    // −5 splits into 0 (drawn) and −5 (not drawn).
    EXPECT_EQ(negative.segments.size(), 21u);
    EXPECT_EQ(negative.segments.back().digit, 2);
}

TEST(DigitalClockScheme, ReadsColoursInOrderAndStopsOnHiddenState) {
    test::TempDir dir;
    const auto file = dir.path() / "skin.xml";
    const auto load = [&](const std::string& element, CXMLParser& parser) {
        test::writeFile(file, "<scheme><mainclock>" + element + "</mainclock></scheme>");
        ASSERT_TRUE(found(parser.Create()));
        ASSERT_TRUE(found(parser.Load(file)));
    };

    CXMLParser full;
    load(R"(<dig_clock state="SHOW" rect="4,300,236,340" fillOn="#FF8000" fillOff="#202020"
        borderOn="#FFFFFF" borderOff="#101010" backFill="#000010"/>)",
         full);
    DigitalClock clock;
    SkinRect rect;
    ASSERT_TRUE(clock.ReadScheme(full, "scheme/mainclock", rect));
    EXPECT_EQ(rect, (SkinRect{4, 300, 236, 340}));
    EXPECT_EQ(clock.colours(),
              (DigitalClockColours{rgb(255, 128, 0), rgb(32, 32, 32), rgb(255, 255, 255),
                                   rgb(16, 16, 16), rgb(0, 0, 16)}));

    // Missing colours keep what the clock held.
    CXMLParser partial;
    load(R"(<dig_clock state="show" fillOff="#00FF00"/>)", partial);
    ASSERT_TRUE(clock.ReadScheme(partial, "scheme/mainclock", rect));
    EXPECT_EQ(rect, (SkinRect{4, 300, 236, 340}));
    EXPECT_EQ(clock.colours().fillOn, rgb(255, 128, 0));
    EXPECT_EQ(clock.colours().fillOff, rgb(0, 255, 0));

    for (const char* element :
         {R"(<dig_clock state="off" fillOn="#00FF00"/>)", R"(<dig_clock fillOn="#00FF00"/>)"}) {
        CXMLParser hidden;
        load(element, hidden);
        DigitalClock none;
        EXPECT_FALSE(none.ReadScheme(hidden, "scheme/mainclock", rect)) << element;
        EXPECT_EQ(none.colours().fillOn, 0u);
    }
}

} // namespace
} // namespace zonara

#include "clocks/AnalogueClock.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

TEST(HandTable, StaysWithinOneOfTheExactDirections) {
    for (std::size_t i = 0; i < handTable.size(); ++i) {
        const double angle = double(i) * 6.0 * std::numbers::pi / 180.0;
        EXPECT_NEAR(handTable[i].dx, 8000.0 * std::sin(angle), 1.001) << i;
        EXPECT_NEAR(handTable[i].dy, -8000.0 * std::cos(angle), 1.001) << i;
    }
    // The stored rounding leftovers.
    EXPECT_EQ(handTable[0].dy, -7999);
    EXPECT_EQ(handTable[5].dx, 3999);
    EXPECT_EQ(handTable[10].dy, -4000);
    EXPECT_EQ(handTable[45].dx, -7999);
}

TEST(HandGeometry, SizeClassAndFanWidthFollowTheRadius) {
    struct Case {
        int radius;
        int sizeClass;
    };
    for (const Case c : {Case{40, 1}, Case{50, 1}, Case{51, 2}, Case{80, 2}, Case{100, 2},
                         Case{101, 3}, Case{120, 3}}) {
        EXPECT_EQ(sizeClassFor(c.radius), c.sizeClass) << c.radius;
    }
    struct Width {
        int radius;
        int baseWidth;
    };
    for (const Width w : {Width{40, 3}, Width{80, 5}, Width{120, 7}}) {
        const auto fan = handFan({200, 200}, w.radius, sizeClassFor(w.radius), 0, 72);
        ASSERT_EQ(int(fan.size()), w.baseWidth);
        // The bases sit side by side on consecutive pixels; every line ends at one tip.
        for (std::size_t k = 0; k < fan.size(); ++k) {
            EXPECT_EQ(fan[k].from, (PixelPoint{200 - w.baseWidth / 2 + int(k), 200}));
            EXPECT_EQ(fan[k].to, fan[0].to);
        }
    }
}

TEST(HandGeometry, BaseSpreadsAcrossTheHandAndTipsTruncateTowardsZero) {
    const PixelPoint c{100, 100};
    // 3:15 - the minute hand lies horizontal and spreads vertically.
    const auto quarter = handFan(c, 100, 2, 15, 72);
    EXPECT_EQ(quarter.front().from, (PixelPoint{100, 98}));
    EXPECT_EQ(quarter.back().from, (PixelPoint{100, 102}));
    EXPECT_EQ(quarter.front().to, (PixelPoint{100 + 8000 * 72 / 7000, 100})); // 182
    // 3:09 - index 9 still counts as upright.
    const auto nine = handFan(c, 100, 2, 9, 72);
    EXPECT_EQ(nine.front().from, (PixelPoint{98, 100}));
    EXPECT_EQ(nine.back().from, (PixelPoint{102, 100}));
    // 6472·72/7000 = 66.57 and −4702·72/7000 = −48.36: both truncate towards zero.
    EXPECT_EQ(nine.front().to, (PixelPoint{166, 52}));
    // The edges of both horizontal ranges.
    EXPECT_TRUE(spreadsVertically(10));
    EXPECT_TRUE(spreadsVertically(20));
    EXPECT_FALSE(spreadsVertically(21));
    EXPECT_FALSE(spreadsVertically(39));
    EXPECT_TRUE(spreadsVertically(40));
    EXPECT_TRUE(spreadsVertically(50));
    EXPECT_FALSE(spreadsVertically(51));
    // A scale of 100 reaches 8/7 of the radius: past the face.
    EXPECT_EQ(handFan(c, 70, 2, 30, 100)[2].to, (PixelPoint{100, 100 + 7999 * 70 / 7000}));
    // Length 0 collapses the fan onto the centre.
    for (const LineSegment& line : handFan(c, 120, 3, 17, 0))
        EXPECT_EQ(line.to, c);
    EXPECT_TRUE(handFan(c, 100, 2, 60, 72).empty());
    EXPECT_TRUE(handFan(c, 100, 2, -1, 72).empty());
}

TEST(HandGeometry, SecondHandAndTail) {
    const auto lines = secondHand({50, 60}, 100, 15);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], (LineSegment{{50, 60}, {50 + 8000 * 75 / 7000, 60}}));
    EXPECT_EQ(lines[1], (LineSegment{{50, 60}, {50 - 8000 * 20 / 7000, 60}}));
    // Index 7: 5353·75/7000 = 57.35, −5945·75/7000 = −63.7; tail 15.29 and −16.99.
    EXPECT_EQ(secondHand({0, 0}, 100, 7)[0].to, (PixelPoint{57, -63}));
    EXPECT_EQ(secondHand({0, 0}, 100, 7)[1].to, (PixelPoint{-15, 16}));
}

TEST(AnalogueClockEngine, HandsInDrawingOrderWithIndexRules) {
    AnalogueClock clock;
    clock.setRadius(100);
    clock.setCentre(100, 100);
    clock.setTime(0, 59, 30); // 12:59:30
    const auto strokes = clock.hands();
    ASSERT_EQ(strokes.size(), 3u);
    EXPECT_EQ(strokes[0].lines, handFan({100, 100}, 100, 2, 59, 72));
    EXPECT_EQ(strokes[0].colour, rgb(255, 255, 255));
    EXPECT_EQ(strokes[1].lines, handFan({100, 100}, 100, 2, 4, 50)); // 0·5 + 59/12
    EXPECT_EQ(strokes[2].lines, secondHand({100, 100}, 100, 30));
    EXPECT_EQ(strokes[2].colour, rgb(255, 0, 0));
    EXPECT_EQ(hourHandIndex(3, 15), 16);
    EXPECT_EQ(hourHandIndex(11, 59), 59);
    clock.setHideSeconds(true);
    EXPECT_EQ(clock.hands().size(), 2u);
}

TEST(AnalogueClockEngine, WindowSizeFillsWhatTheSkinLeftUnset) {
    AnalogueClock fresh;
    fresh.applyClientSize(300, 120);
    EXPECT_EQ(fresh.radius(), 60);
    EXPECT_EQ(fresh.sizeClass(), 2);
    EXPECT_EQ(fresh.centre(), (PixelPoint{150, 60}));

    AnalogueClock skinned;
    skinned.setRadius(30);
    skinned.setCentre(10, 20);
    skinned.applyClientSize(300, 120);
    EXPECT_EQ(skinned.radius(), 30);
    EXPECT_EQ(skinned.sizeClass(), 1);
    EXPECT_EQ(skinned.centre(), (PixelPoint{10, 20}));
}

TEST(HandScale, Clamps) {
    EXPECT_EQ(clampHandScale("250"), 200);
    EXPECT_EQ(clampHandScale("200"), 200);
    EXPECT_EQ(clampHandScale("-5"), 1);
    EXPECT_EQ(clampHandScale("0"), 0);
    EXPECT_EQ(clampHandScale(" 64px"), 64);
    EXPECT_EQ(clampHandScale("x"), 0);
}

// A 7 x 3 step, so the accumulator wraps twice; the expected weights are
// w = 109, 219, 73, 182, 36, 146 at x = 1..6 (adj = 196608 / 7 = 28086).
constexpr PixelPoint lineStart{0, 0};
constexpr PixelPoint lineEnd{7, 3};

TEST(AntiAliasedLine, DarkLineOnLightFaceBlendsByTheLightWeight) {
    const ColorRef face = rgb(200, 200, 200);
    MemorySurface s(10, 6, face);
    drawAntiAliasedLine(s, lineStart, lineEnd, 0);
    EXPECT_EQ(s.getPixel(0, 0), 0u);
    EXPECT_EQ(s.getPixel(7, 3), 0u);
    EXPECT_EQ(s.getPixel(1, 0), rgb(85, 85, 85));    // 200·109/255 = 85.5
    EXPECT_EQ(s.getPixel(1, 1), rgb(114, 114, 114)); // 200·146/255 = 114.5
    EXPECT_EQ(s.getPixel(2, 0), rgb(171, 171, 171)); // k 219
    EXPECT_EQ(s.getPixel(2, 1), rgb(28, 28, 28));    // k 36
    EXPECT_EQ(s.getPixel(3, 1), rgb(57, 57, 57));    // wrapped: y moved down, k 73
    EXPECT_EQ(s.getPixel(3, 2), rgb(142, 142, 142)); // k 182
    // Nothing off the two-pixel band changes.
    EXPECT_EQ(s.getPixel(1, 2), face);
    EXPECT_EQ(s.getPixel(8, 3), face);
    EXPECT_EQ(s.getPixel(0, 1), face);
}

TEST(AntiAliasedLine, LightLineOnDarkFaceInvertsTheWeights) {
    MemorySurface s(10, 6, rgb(30, 30, 30));
    drawAntiAliasedLine(s, lineStart, lineEnd, rgb(255, 255, 255));
    EXPECT_EQ(s.getPixel(1, 0), rgb(158, 158, 158)); // 225·146/255 + 30
    EXPECT_EQ(s.getPixel(1, 1), rgb(126, 126, 126)); // 225·109/255 + 30
    EXPECT_EQ(s.getPixel(2, 0), rgb(61, 61, 61));
    EXPECT_EQ(s.getPixel(2, 1), rgb(223, 223, 223));
    EXPECT_EQ(s.getPixel(7, 3), rgb(255, 255, 255));
}

TEST(AntiAliasedLine, ComponentsBlendTowardsWhicheverIsLighter) {
    // The line is darker by grey value (81.2 against 84.5), though its red is lighter.
    MemorySurface s(10, 6, rgb(10, 100, 200));
    drawAntiAliasedLine(s, lineStart, lineEnd, rgb(240, 16, 0));
    EXPECT_EQ(s.getPixel(1, 0), rgb(108, 51, 85)); // 230·109/255+10, 84·109/255+16, 200·109/255
    EXPECT_EQ(s.getPixel(1, 1), rgb(141, 64, 114));
}

TEST(AntiAliasedLine, DirectionAndSpecialCases) {
    MemorySurface forward(10, 6, rgb(200, 200, 200));
    MemorySurface backward(10, 6, rgb(200, 200, 200));
    MemorySurface mirrored(10, 6, rgb(200, 200, 200));
    MemorySurface steep(10, 10, rgb(200, 200, 200));
    drawAntiAliasedLine(forward, lineStart, lineEnd, 0);
    drawAntiAliasedLine(backward, lineEnd, lineStart, 0);
    drawAntiAliasedLine(mirrored, {7, 0}, {0, 3}, 0);
    drawAntiAliasedLine(steep, {0, 0}, {3, 7}, 0);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x) {
            EXPECT_EQ(backward.getPixel(x, y), forward.getPixel(x, y)) << x << "," << y;
            EXPECT_EQ(mirrored.getPixel(7 - x, y), forward.getPixel(x, y)) << x << "," << y;
            EXPECT_EQ(steep.getPixel(y, x), forward.getPixel(x, y)) << x << "," << y;
        }

    // Horizontal, vertical and diagonal lines are solid, end points included.
    const ColorRef face = rgb(200, 200, 200);
    const ColorRef ink = rgb(1, 2, 3);
    MemorySurface solid(12, 12, face);
    drawAntiAliasedLine(solid, {9, 1}, {2, 1}, ink);
    drawAntiAliasedLine(solid, {1, 9}, {1, 3}, ink);
    drawAntiAliasedLine(solid, {10, 4}, {5, 9}, ink);
    int inked = 0;
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            const ColorRef p = solid.getPixel(x, y);
            EXPECT_TRUE(p == face || p == ink);
            inked += p == ink;
        }
    EXPECT_EQ(inked, 8 + 7 + 6);
    EXPECT_EQ(solid.getPixel(2, 1), ink);
    EXPECT_EQ(solid.getPixel(1, 3), ink);
    EXPECT_EQ(solid.getPixel(7, 7), ink);

    // Lines that leave the surface are cut off without harm.
    MemorySurface small(4, 4, face);
    drawAntiAliasedLine(small, {-20, -3}, {30, 9}, ink);
    EXPECT_EQ(small.getPixel(-1, 0), 0u);
}

TEST(AnalogueClockEngine, DrawsHandsOverTheFace) {
    const ColorRef face = rgb(240, 240, 240);
    MemorySurface s(100, 100, face);
    AnalogueClock clock;
    clock.applyClientSize(100, 100);
    clock.setHourColour(rgb(0, 0, 0));
    clock.setMinuteColour(rgb(0, 0, 128));
    clock.setTime(3, 0, 45); // minute hand up, hour hand right, second hand left
    clock.drawHands(s);
    // The middle line of each fan is straight and solid.
    EXPECT_EQ(s.getPixel(50, 20), rgb(0, 0, 128));
    EXPECT_EQ(s.getPixel(75, 50), rgb(0, 0, 0));
    EXPECT_EQ(s.getPixel(20, 50), rgb(255, 0, 0));
    // Minute hand: 50·72/100 = 36, tip at 50 − 7999·36/7000 = 9; the hour hand
    // ends at 50 + 8000·25/7000 = 78.
    EXPECT_EQ(s.getPixel(50, 9), rgb(0, 0, 128));
    EXPECT_EQ(s.getPixel(50, 8), face);
    EXPECT_EQ(s.getPixel(78, 50), rgb(0, 0, 0));
    EXPECT_EQ(s.getPixel(79, 50), face);
    EXPECT_EQ(s.getPixel(50, 60), face);
    EXPECT_EQ(s.getPixel(90, 90), face);
}

void writeScheme(const std::filesystem::path& file, const std::string& clockElement) {
    test::writeFile(file, "<?xml version=\"1.0\"?><scheme><mainclock>" + clockElement +
                              "</mainclock></scheme>");
}

TEST(AnalogueClockScheme, ReadsKeysAndKeepsDefaultsForMissingOnes) {
    test::TempDir dir;
    const auto file = dir.path() / "skin.xml";
    writeScheme(file, R"(<clock state="Show" rect="10,20,210,220" hand-center="90,95" radius="101">
        <hourhand lengthscale="250" widthscale="-5" fill-color="#102030" outline-color="#FF8000"/>
        <minutehand lengthscale="0" widthscale="7" fill-color="#010203" outline-color="#0000FF"/>
        <secondhand outline-color="#00FF00"/></clock>)");
    CXMLParser parser;
    ASSERT_TRUE(found(parser.Create()));
    ASSERT_TRUE(found(parser.Load(file)));
    AnalogueClock clock;
    SkinRect rect;
    ASSERT_TRUE(clock.ReadScheme(parser, "scheme/mainclock", rect));
    EXPECT_EQ(rect, (SkinRect{10, 20, 210, 220}));
    EXPECT_EQ(clock.centre(), (PixelPoint{90, 95}));
    EXPECT_EQ(clock.radius(), 101);
    EXPECT_EQ(clock.sizeClass(), 3);
    EXPECT_EQ(clock.hourLengthScale(), 200);
    EXPECT_EQ(clock.hourWidthScale(), 1);
    EXPECT_EQ(clock.hourFillColour(), rgb(0x10, 0x20, 0x30));
    EXPECT_EQ(clock.hourColour(), rgb(255, 128, 0));
    EXPECT_EQ(clock.minuteLengthScale(), 0);
    EXPECT_EQ(clock.minuteWidthScale(), 7);
    EXPECT_EQ(clock.minuteFillColour(), rgb(1, 2, 3));
    EXPECT_EQ(clock.minuteColour(), rgb(0, 0, 255));
    EXPECT_EQ(clock.secondColour(), rgb(0, 255, 0));

    writeScheme(file, R"(<clock state="show" rect="0,0,160,100"/>)");
    CXMLParser bare;
    ASSERT_TRUE(found(bare.Create()));
    ASSERT_TRUE(found(bare.Load(file)));
    AnalogueClock plain;
    ASSERT_TRUE(plain.ReadScheme(bare, "scheme/mainclock", rect));
    plain.applyClientSize(rect.right - rect.left, rect.bottom - rect.top);
    EXPECT_EQ(plain.radius(), 50);
    EXPECT_EQ(plain.centre(), (PixelPoint{80, 50}));
    EXPECT_EQ(plain.hourLengthScale(), 50);
    EXPECT_EQ(plain.minuteLengthScale(), 72);
    EXPECT_EQ(plain.hourColour(), rgb(255, 255, 255));
    EXPECT_EQ(plain.secondColour(), rgb(255, 0, 0));
}

TEST(AnalogueClockScheme, StateDecidesWhetherAnythingIsRead) {
    test::TempDir dir;
    const auto file = dir.path() / "skin.xml";
    SkinRect rect{1, 2, 3, 4};
    for (const char* element : {R"(<clock state="hide" rect="5,6,7,8" radius="9"/>)",
                                R"(<clock rect="5,6,7,8" radius="9"/>)", "<other/>"}) {
        writeScheme(file, element);
        CXMLParser parser;
        ASSERT_TRUE(found(parser.Create()));
        ASSERT_TRUE(found(parser.Load(file)));
        AnalogueClock clock;
        EXPECT_FALSE(clock.ReadScheme(parser, "scheme/mainclock", rect)) << element;
        EXPECT_EQ(rect, (SkinRect{1, 2, 3, 4}));
        EXPECT_EQ(clock.radius(), -1);
    }
    // Without any document every lookup fails and the built-in clock is shown.
    CXMLParser none;
    AnalogueClock clock;
    EXPECT_TRUE(clock.ReadScheme(none, "scheme/mainclock", rect));
    EXPECT_EQ(rect, (SkinRect{1, 2, 3, 4}));
    EXPECT_EQ(clock.radius(), -1);
}

} // namespace
} // namespace zonara

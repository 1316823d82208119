#include "clocks/AnalogueClock.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

TEST(HandGeometry, TableSizeClassFanAndSecondHand) {
    for (std::size_t i = 0; i < handTable.size(); ++i) {
        const double angle = double(i) * 6.0 * std::numbers::pi / 180.0;
        EXPECT_NEAR(handTable[i].dx, 8000.0 * std::sin(angle), 1.001) << i;
        EXPECT_NEAR(handTable[i].dy, -8000.0 * std::cos(angle), 1.001) << i;
    }
    for (const auto& [radius, sizeClass] : {std::pair{50, 1}, {51, 2}, {100, 2}, {101, 3}})
        EXPECT_EQ(sizeClassFor(radius), sizeClass) << radius;
    for (const auto& [index, vertical] : {std::pair{9, false},
                                          {10, true},
                                          {20, true},
                                          {21, false},
                                          {39, false},
                                          {40, true},
                                          {50, true},
                                          {51, false}})
        EXPECT_EQ(spreadsVertically(index), vertical) << index;

    const PixelPoint c{100, 100};
    // 3:15: the bases sit on consecutive pixels across the hand; every line ends at one tip.
    const auto quarter = handFan(c, 120, 3, 15, 72);
    ASSERT_EQ(quarter.size(), 7u);
    for (std::size_t k = 0; k < quarter.size(); ++k)
        EXPECT_EQ(quarter[k], (LineSegment{{100, 97 + int(k)}, {100 + 8000 * 86 / 7000, 100}}));
    // 6472·72/7000 = 66.57 and −4702·72/7000 = −48.36: both truncate towards zero.
    const auto nine = handFan(c, 100, 2, 9, 72);
    EXPECT_EQ(nine.front(), (LineSegment{{98, 100}, {166, 52}}));
    EXPECT_EQ(nine.back().from, (PixelPoint{102, 100}));
    // A scale of 100 reaches 8/7 of the radius: past the face.
    EXPECT_EQ(handFan(c, 70, 2, 30, 100)[2].to, (PixelPoint{100, 100 + 7999 * 70 / 7000}));
    EXPECT_TRUE(handFan(c, 100, 2, 60, 72).empty());
    EXPECT_TRUE(handFan(c, 100, 2, -1, 72).empty());

    // Index 7: 5353·75/7000 = 57.35, −5945·75/7000 = −63.7; tail 15.29 and −16.99.
    EXPECT_EQ(secondHand({0, 0}, 100, 7),
              (std::vector<LineSegment>{{{0, 0}, {57, -63}}, {{0, 0}, {-15, 16}}}));

    for (const auto& [text, scale] :
         {std::pair{"250", 200}, {"200", 200}, {"-5", 1}, {"0", 0}, {" 64px", 64}, {"x", 0}})
        EXPECT_EQ(clampHandScale(text), scale) << text;
}

TEST(AnalogueClockEngine, HandsFollowTheTimeAndTheWindowFillsWhatTheSkinLeftUnset) {
    AnalogueClock clock;
    clock.applyClientSize(300, 200);
    EXPECT_EQ(clock.radius(), 100);
    EXPECT_EQ(clock.sizeClass(), 2);
    EXPECT_EQ(clock.centre(), (PixelPoint{150, 100}));
    clock.setTime(0, 59, 30); // 12:59:30
    const auto strokes = clock.hands();
    ASSERT_EQ(strokes.size(), 3u);
    EXPECT_EQ(strokes[0].lines, handFan({150, 100}, 100, 2, 59, 72));
    EXPECT_EQ(strokes[1].lines, handFan({150, 100}, 100, 2, 4, 50)); // 0·5 + 59/12
    EXPECT_EQ(strokes[2].lines, secondHand({150, 100}, 100, 30));
    EXPECT_EQ(strokes[2].colour, rgb(255, 0, 0));
    clock.setHideSeconds(true);
    EXPECT_EQ(clock.hands().size(), 2u);

    AnalogueClock skinned;
    skinned.setRadius(30);
    skinned.setCentre(10, 20);
    skinned.applyClientSize(300, 120);
    EXPECT_EQ(skinned.radius(), 30);
    EXPECT_EQ(skinned.centre(), (PixelPoint{10, 20}));
}

ColorRef grey(std::uint8_t v) {
    return rgb(v, v, v);
}

// A 7 x 3 step, so the accumulator wraps twice; the weights are
// w = 109, 219, 73, 182, 36, 146 at x = 1..6 (adj = 196608 / 7 = 28086). A dark
// line on a light face blends k = w into the line's pixel (200·109/255 = 85.5 at
// (1,0)) and 255 − w into the one below; a light line on a dark face swaps them
// (225·146/255 + 30 = 158 at (1,0)). Where grey value and components disagree
// (81.2 against 84.5 with a lighter red), each component blends towards the lighter.
TEST(AntiAliasedLine, BlendsByTheLighterComponentOnLightAndDarkFaces) {
    struct Pixel {
        int x, y;
        ColorRef colour;
    };
    const auto check = [](ColorRef face, ColorRef ink, std::initializer_list<Pixel> pixels) {
        MemorySurface s(10, 6, face);
        drawAntiAliasedLine(s, {0, 0}, {7, 3}, ink);
        for (const Pixel& p : pixels)
            EXPECT_EQ(s.getPixel(p.x, p.y), p.colour) << face << ": " << p.x << "," << p.y;
    };
    check(grey(200), 0,
          {{0, 0, 0},
           {7, 3, 0},
           {1, 0, grey(85)},
           {1, 1, grey(114)},
           {2, 0, grey(171)},
           {2, 1, grey(28)},
           {3, 1, grey(57)},
           {3, 2, grey(142)},
           {1, 2, grey(200)},
           {8, 3, grey(200)},
           {0, 1, grey(200)}});
    check(grey(30), grey(255),
          {{1, 0, grey(158)},
           {1, 1, grey(126)},
           {2, 0, grey(61)},
           {2, 1, grey(223)},
           {7, 3, grey(255)}});
    check(rgb(10, 100, 200), rgb(240, 16, 0),
          {{1, 0, rgb(108, 51, 85)}, {1, 1, rgb(141, 64, 114)}});
}

TEST(AntiAliasedLine, DirectionAndSpecialCases) {
    const ColorRef face = rgb(200, 200, 200);
    MemorySurface forward(10, 6, face), backward(10, 6, face), mirrored(10, 6, face),
        steep(10, 10, face);
    drawAntiAliasedLine(forward, {0, 0}, {7, 3}, 0);
    drawAntiAliasedLine(backward, {7, 3}, {0, 0}, 0);
    drawAntiAliasedLine(mirrored, {7, 0}, {0, 3}, 0);
    drawAntiAliasedLine(steep, {0, 0}, {3, 7}, 0);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 8; ++x) {
            EXPECT_EQ(backward.getPixel(x, y), forward.getPixel(x, y)) << x << "," << y;
            EXPECT_EQ(mirrored.getPixel(7 - x, y), forward.getPixel(x, y)) << x << "," << y;
            EXPECT_EQ(steep.getPixel(y, x), forward.getPixel(x, y)) << x << "," << y;
        }

    // Horizontal, vertical and diagonal lines are solid, end points included.
    const ColorRef ink = rgb(1, 2, 3);
    MemorySurface solid(12, 12, face);
    drawAntiAliasedLine(solid, {9, 1}, {2, 1}, ink);
    drawAntiAliasedLine(solid, {1, 9}, {1, 3}, ink);
    drawAntiAliasedLine(solid, {10, 4}, {5, 9}, ink);
    int inked = 0;
    for (int y = 0; y < 12; ++y)
        for (int x = 0; x < 12; ++x) {
            EXPECT_TRUE(solid.getPixel(x, y) == face || solid.getPixel(x, y) == ink);
            inked += solid.getPixel(x, y) == ink;
        }
    EXPECT_EQ(inked, 8 + 7 + 6);

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
    // Minute hand: 50·72/100 = 36, tip at 50 − 7999·36/7000 = 9; the hour hand
    // ends at 50 + 8000·25/7000 = 78.
    const std::pair<PixelPoint, ColorRef> pixels[] = {
        {{50, 20}, rgb(0, 0, 128)}, {{50, 9}, rgb(0, 0, 128)}, {{50, 8}, face},
        {{75, 50}, rgb(0, 0, 0)},   {{78, 50}, rgb(0, 0, 0)},  {{79, 50}, face},
        {{20, 50}, rgb(255, 0, 0)}, {{50, 60}, face},          {{90, 90}, face}};
    for (const auto& [p, colour] : pixels)
        EXPECT_EQ(s.getPixel(p.x, p.y), colour) << p.x << "," << p.y;
}

TEST(AnalogueClockScheme, ReadsKeysKeepsDefaultsAndStopsUnlessShown) {
    test::TempDir dir;
    const auto file = dir.path() / "skin.xml";
    const auto read = [&](const std::string& element, AnalogueClock& clock, SkinRect& rect) {
        test::writeFile(file, "<scheme><mainclock>" + element + "</mainclock></scheme>");
        CXMLParser parser;
        EXPECT_TRUE(found(parser.Create()));
        EXPECT_TRUE(found(parser.Load(file)));
        return clock.readScheme(parser, "scheme/mainclock", rect);
    };
    AnalogueClock clock;
    SkinRect rect;
    ASSERT_TRUE(read(R"(<clock state="Show" rect="10,20,210,220" hand-center="90,95" radius="101">
        <hourhand lengthscale="250" widthscale="-5" fill-color="#102030" outline-color="#FF8000"/>
        <minutehand lengthscale="0" widthscale="7" fill-color="#010203" outline-color="#0000FF"/>
        <secondhand outline-color="#00FF00"/></clock>)",
                     clock, rect));
    EXPECT_EQ(rect, (SkinRect{10, 20, 210, 220}));
    EXPECT_EQ(clock.centre(), (PixelPoint{90, 95}));
    EXPECT_EQ(clock.sizeClass(), 3);
    // Scales clamp; fill colours and width scales are kept but never drawn.
    EXPECT_EQ(std::tuple(clock.hourLengthScale(), clock.minuteLengthScale()), std::tuple(200, 0));
    EXPECT_EQ(std::tuple(clock.hourColour(), clock.minuteColour(), clock.secondColour()),
              std::tuple(rgb(255, 128, 0), rgb(0, 0, 255), rgb(0, 255, 0)));

    AnalogueClock plain;
    ASSERT_TRUE(read(R"(<clock state="show" rect="0,0,160,100"/>)", plain, rect));
    plain.applyClientSize(rect.right - rect.left, rect.bottom - rect.top);
    EXPECT_EQ(plain.radius(), 50);
    EXPECT_EQ(plain.centre(), (PixelPoint{80, 50}));
    EXPECT_EQ(std::tuple(plain.hourLengthScale(), plain.minuteLengthScale()), std::tuple(50, 72));

    // A state other than "show" reads nothing more; so does a missing one.
    rect = {1, 2, 3, 4};
    for (const char* element : {R"(<clock state="hide" rect="5,6,7,8" radius="9"/>)",
                                R"(<clock rect="5,6,7,8" radius="9"/>)", "<other/>"}) {
        AnalogueClock hidden;
        EXPECT_FALSE(read(element, hidden, rect)) << element;
        EXPECT_EQ(rect, (SkinRect{1, 2, 3, 4}));
        EXPECT_EQ(hidden.radius(), -1);
    }
    // Without any document every lookup fails and the built-in clock is shown.
    AnalogueClock builtIn;
    EXPECT_TRUE(builtIn.readScheme(CXMLParser(), "scheme/mainclock", rect));
    EXPECT_EQ(rect, (SkinRect{1, 2, 3, 4}));
}

} // namespace
} // namespace zonara

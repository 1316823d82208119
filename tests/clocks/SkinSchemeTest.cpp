#include "clocks/SkinScheme.h"

#include <gtest/gtest.h>

#include "clocks/CXMLParser.h"
#include "clocks/SkinFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

// Fields without an attribute repeat what the field before them read.
constexpr std::string_view inheritingScheme = R"(<?xml version="1.0" encoding="utf-8"?>
<scheme>
  <mainclock>
    <background img="back.jpg"/>
    <country font-size="9" rect="1,2,3,4"/>
    <city state="show" font-size="14" font-weight="Bold" font-color="#FF8000"
          rect="10,20,200,40" align="Center"/>
    <time font-weight="normal"/>
    <date state="hide" style="long" align="right"/>
    <airportcode state="SHOW" rect="5,6"/>
    <inettime rect="7,8,9,10" align="right" style="short"/>
    <clock state="show" rect="0,0,100,100"/>
    <moonphase img="moon.gif" size="16,12"/>
  </mainclock>
</scheme>
)";

TextField field(bool shown, ColorRef colour, SkinRect rect, std::int32_t align,
                std::int32_t fontSize, std::int32_t fontWeight, bool shortStyle) {
    TextField f;
    f.shown = shown;
    f.colour = colour;
    f.rect = rect;
    f.align = align;
    f.fontSize = fontSize;
    f.fontWeight = fontWeight;
    f.shortStyle = shortStyle;
    return f;
}

TEST(SkinSchemeTest, MissingAttributesRepeatThePreviousField) {
    TempDir dir;
    const Paths paths(dir.path());
    writeFile(schemeFile(paths, "default.xml", 240, 320), inheritingScheme);
    const SkinScheme scheme = loadSkinScheme(schemeFile(paths, "default.xml", 240, 320), {});

    EXPECT_EQ(scheme.background, "back.jpg");
    EXPECT_TRUE(scheme.loadBackground);

    const ColorRef orange = rgb(255, 128, 0);
    const TextField expected[] = {
        // The first field without "@state" is hidden, and its missing style
        // (an empty value) is short.
        field(false, 0, {1, 2, 3, 4}, 0, 9, 500, true),
        field(true, orange, {10, 20, 200, 40}, 1, 14, 700, true),
        field(true, orange, {10, 20, 200, 40}, 1, 14, 500, true),
        field(false, orange, {10, 20, 200, 40}, 2, 14, 500, false),
        // "@align" and "@style" share one string: both read "long" here.
        field(true, orange, {5, 6, 0, 0}, 0, 14, 500, false),
    };
    for (std::size_t slot = 0; slot < std::size(expected); ++slot)
        EXPECT_EQ(scheme.fields[slot], expected[slot]) << textFieldNames[slot];
    for (std::size_t slot = 5; slot < 12; ++slot)
        EXPECT_EQ(scheme.fields[slot], expected[4]) << textFieldNames[slot];
    EXPECT_EQ(scheme.fields[12], field(true, orange, {7, 8, 9, 10}, 2, 14, 500, true));
    for (const TextField& f : scheme.fields) {
        EXPECT_EQ(f.text, "test");
        EXPECT_TRUE(f.dirty);
    }

    // Without its own state and rectangle the moon phase follows inettime.
    const MoonPhaseLayout& moon = scheme.moonPhase;
    EXPECT_TRUE(moon.read && moon.loadImage);
    EXPECT_EQ(std::tuple(moon.image, moon.rect, moon.size),
              std::tuple(std::string("moon.gif"), SkinRect{7, 8, 9, 10}, SkinSize{16, 12}));
}

TEST(SkinSchemeTest, TheMoonPhaseIsReadOnlyWhenShown) {
    TempDir dir;
    SkinScheme previous;
    previous.moonPhase.image = "old.gif";
    previous.moonPhase.rect = {1, 2, 3, 4};
    previous.moonPhase.size = {5, 6};

    // Hidden by its own state: nothing of it is read.
    writeFile(dir.path() / "hidden.xml", R"(<scheme><mainclock>
        <inettime state="show"/>
        <moonphase state="off" img="moon.gif" rect="9,9,9,9" size="7,7"/>
      </mainclock></scheme>)");
    const MoonPhaseLayout hidden = loadSkinScheme(dir.path() / "hidden.xml", previous).moonPhase;
    EXPECT_FALSE(hidden.read || hidden.loadImage);
    EXPECT_EQ(std::tuple(hidden.image, hidden.rect, hidden.size),
              std::tuple(std::string("old.gif"), previous.moonPhase.rect, previous.moonPhase.size));

    // Hidden because inettime is, and the moon phase has no state of its own.
    writeFile(dir.path() / "follows.xml", R"(<scheme><mainclock>
        <inettime state="hide"/><moonphase img="moon.gif"/></mainclock></scheme>)");
    EXPECT_FALSE(loadSkinScheme(dir.path() / "follows.xml", previous).moonPhase.read);

    // Shown with no rectangle anywhere and no size or picture: the empty
    // rectangle sets left alone, the size stays, the picture name is empty.
    writeFile(dir.path() / "bare.xml",
              R"(<scheme><mainclock><moonphase state="Show"/></mainclock></scheme>)");
    const MoonPhaseLayout bare = loadSkinScheme(dir.path() / "bare.xml", previous).moonPhase;
    EXPECT_TRUE(bare.read && bare.loadImage);
    EXPECT_EQ(std::tuple(bare.image, bare.rect, bare.size),
              std::tuple(std::string(), SkinRect{0, 2, 3, 4}, previous.moonPhase.size));
}

TEST(SkinSchemeTest, AMissingFileHidesEverythingAndNoDocumentAppliesNothing) {
    TempDir dir;
    SkinScheme previous;
    previous.background = "old.jpg";
    previous.fields[1].shown = true;
    previous.moonPhase.image = "old.gif";
    previous.moonPhase.rect = {1, 2, 3, 4};

    // Nothing matched, so each field took the empty strings: hidden, weight 500,
    // short style; the background name stays.
    const SkinScheme absent = loadSkinScheme(dir.path() / "absent.xml", previous);
    EXPECT_EQ(absent.background, "old.jpg");
    EXPECT_TRUE(absent.loadBackground);
    for (const TextField& f : absent.fields)
        EXPECT_TRUE(!f.shown && f.fontWeight == 500 && f.shortStyle);
    EXPECT_FALSE(absent.moonPhase.read);

    // Without a document every lookup fails: the fields start afresh, nothing is applied. The
    // moon-phase state cannot be looked up, so its keys are tried, and none of them applies.
    const SkinScheme none = readSkinScheme(CXMLParser(), previous);
    EXPECT_EQ(none.background, "old.jpg");
    EXPECT_FALSE(none.loadBackground);
    for (const TextField& f : none.fields)
        EXPECT_EQ(f, TextField{});
    EXPECT_TRUE(none.moonPhase.read);
    EXPECT_FALSE(none.moonPhase.loadImage);
    EXPECT_EQ(none.moonPhase.image, "old.gif");
    EXPECT_EQ(none.moonPhase.rect, previous.moonPhase.rect);
}

} // namespace
} // namespace zonara

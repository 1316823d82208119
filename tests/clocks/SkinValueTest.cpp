#include "clocks/SkinValue.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(SkinValueTest, Numbers) {
    struct Case {
        std::string_view text;
        std::int32_t value;
    };
    const Case cases[] = {
        {"", 0},
        {"12", 12},
        {"  -7x", -7},
        {"\t\n+5", 5},
        {"1 2", 1},
        {"abc", 0},
        {"- 4", 0},
        {"3.9", 3},
        {"99999999999999999999", std::numeric_limits<std::int32_t>::max()},
        {"-99999999999999999999", std::numeric_limits<std::int32_t>::min()},
    };
    for (const Case& c : cases)
        EXPECT_EQ(parseNumber(c.text), c.value) << '"' << c.text << '"';
}

TEST(SkinValueTest, ColoursFollowTheSchemesHexadecimalRule) {
    struct Case {
        std::string_view text;
        ColorRef colour;
    };
    const Case cases[] = {
        {"#FF8000", rgb(255, 128, 0)},
        {"#FF8000 trailing", rgb(255, 128, 0)},
        // Character 0 is skipped whatever it is, so the digits shift.
        {"FF8000", rgb(0xF8, 0x00, 0x00)},
        {"x0A0B0C", rgb(0x0A, 0x0B, 0x0C)},
        // Short values leave the missing components at 0.
        {"#1?2", rgb(0x1F, 0x02, 0x00)},
        {"#", 0},
        // "*" to "?" count as their low four bits.
        {"#*:;<=>", rgb(0xAA, 0xBC, 0xDE)},
        {"#/0+9?-", rgb(0xF0, 0xB9, 0xFD)},
        // The first other character ends a component.
        {"#G0FF00", rgb(0, 0xFF, 0)},
        {"#1G2345", rgb(0x01, 0x23, 0x45)},
        {"# 1 2 3", 0},
        {"#a0B0c0", rgb(0xA0, 0xB0, 0xC0)},
        // Characters are counted as the document delivers them, not as bytes.
        {"\xC3\xA9"
         "102030",
         rgb(0x10, 0x20, 0x30)},
        {"#10203\xE2\x82\xAC", rgb(0x10, 0x20, 0x03)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(parseColor(c.text), c.colour) << '"' << c.text << '"';
}

TEST(SkinValueTest, RectanglesFillMembersInOrder) {
    const SkinRect before{9, 9, 9, 9};
    struct Case {
        std::string text;
        SkinRect rect;
    };
    const Case cases[] = {
        {"", {0, 9, 9, 9}},
        {"5,6", {5, 6, 9, 9}},
        {"1,2,3,4,5,6", {1, 2, 3, 4}},
        {" 10, -20 ,x,7", {10, -20, 0, 7}},
        {"1,,3", {1, 0, 3, 9}},
        {"1,2,", {1, 2, 0, 9}},
        // Only the first 255 characters are split.
        {std::string(254, ' ') + "1,2,3,4", {1, 9, 9, 9}},
        {std::string(252, ' ') + "1,2,3,4", {1, 2, 9, 9}},
    };
    for (const Case& c : cases) {
        SkinRect rect = before;
        parseRect(c.text, rect);
        EXPECT_EQ(rect, c.rect) << '"' << c.text << '"';
    }
}

TEST(SkinValueTest, PairsReadLikeScanf) {
    struct Case {
        std::string_view text;
        int converted;
        std::int32_t first;
        std::int32_t second;
    };
    const Case cases[] = {
        {"3,4", 2, 3, 4},
        {"-5,+6", 2, -5, 6},
        {"0x10,010", 2, 16, 8},
        {"7", 1, 7, -1},
        {"7,x", 1, 7, -1},
        // The comma must follow the number directly.
        {"3 ,4", 1, 3, -1},
        {"", 0, -1, -1},
        {"-,4", 0, -1, -1},
        {"08,1", 1, 0, -1},
    };
    for (const Case& c : cases) {
        SkinPoint point{-1, -1};
        EXPECT_EQ(parsePoint(c.text, point), c.converted) << c.text;
        EXPECT_EQ(point, (SkinPoint{c.first, c.second})) << c.text;
    }
    SkinSize size{20, 30};
    EXPECT_EQ(parseSize("40,50", size), 2);
    EXPECT_EQ(size, (SkinSize{40, 50}));
}

TEST(SkinValueTest, KeywordsIgnoreCase) {
    for (const auto& [text, shown] :
         {std::pair{"show", true}, {"SHOW", true}, {"shown", false}, {"", false}, {" show", false}})
        EXPECT_EQ(isShown(text), shown) << text;
    for (const auto& [text, weight] :
         {std::pair{"Bold", 700}, {"normal", 500}, {"700", 500}, {"bolder", 500}})
        EXPECT_EQ(fontWeightOf(text), weight) << text;
    for (const auto& [text, align] :
         {std::pair{"Center", 1}, {"RIGHT", 2}, {"left", 0}, {"", 0}, {"centre", 0}})
        EXPECT_EQ(alignOf(text), align) << text;
    for (const auto& [text, isShort] : {std::pair{"Long", false}, {"", true}, {"short", true}})
        EXPECT_EQ(isShortStyle(text), isShort) << text;
}

} // namespace
} // namespace zonara

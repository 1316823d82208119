#pragma once
// The value syntax of skin schemes: numbers, colours, rectangles, points, sizes, keywords.

#include <cstdint>
#include <string_view>

#include "controls/ColorRef.h"

namespace zonara {

struct SkinRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    friend bool operator==(const SkinRect&, const SkinRect&) = default;
};

struct SkinPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const SkinPoint&, const SkinPoint&) = default;
};

struct SkinSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
    friend bool operator==(const SkinSize&, const SkinSize&) = default;
};

// Leading blanks and one sign, then decimal digits up to the first other
// character; no digits give 0. Out-of-range values saturate.
std::int32_t parseNumber(std::string_view text);

// "#RRGGBB" as red | green << 8 | blue << 16. Character 0 is skipped whatever
// it is, so a value without "#" is read shifted by one; see the source for the
// digit rule.
ColorRef parseColor(std::string_view text);

// "left,top,right,bottom": each comma-separated piece is a number stored into
// the next member in order; members without a piece keep their values, pieces
// beyond the fourth are ignored, and an empty text stores 0 into left alone.
void parseRect(std::string_view text, SkinRect& rect);

// "%i,%i" as a scanf reads it: leading blanks before each number, "0x" for
// hexadecimal and a leading 0 for octal, the comma matched exactly. Targets
// whose conversion fails keep their values; returns how many were converted.
int parsePair(std::string_view text, std::int32_t& first, std::int32_t& second);
inline int parsePoint(std::string_view text, SkinPoint& point) {
    return parsePair(text, point.x, point.y);
}
inline int parseSize(std::string_view text, SkinSize& size) {
    return parsePair(text, size.width, size.height);
}

// Keyword comparison without regard to (ASCII) case.
bool isKeyword(std::string_view text, std::string_view keyword);

// What the text field keywords mean.
inline bool isShown(std::string_view state) {
    return isKeyword(state, "show");
}
inline std::int32_t fontWeightOf(std::string_view weight) {
    return isKeyword(weight, "bold") ? 700 : 500;
}
// 0 left, 1 centre, 2 right: the values of the text-drawing alignment flags.
inline std::int32_t alignOf(std::string_view align) {
    if (isKeyword(align, "center"))
        return 1;
    if (isKeyword(align, "right"))
        return 2;
    return 0;
}
inline bool isShortStyle(std::string_view style) {
    return !isKeyword(style, "long");
}

} // namespace zonara

#pragma once
// A colour as the skins store it: red in the low byte, then green, then blue.

#include <cstdint>

namespace zonara {

using ColorRef = std::uint32_t;

constexpr ColorRef rgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    return ColorRef(r) | ColorRef(g) << 8 | ColorRef(b) << 16;
}
constexpr std::uint8_t redOf(ColorRef c) {
    return std::uint8_t(c & 0xFF);
}
constexpr std::uint8_t greenOf(ColorRef c) {
    return std::uint8_t(c >> 8 & 0xFF);
}
constexpr std::uint8_t blueOf(ColorRef c) {
    return std::uint8_t(c >> 16 & 0xFF);
}

} // namespace zonara

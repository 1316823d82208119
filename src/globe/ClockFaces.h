#pragma once
// The small clocks' face pictures, and the hand radius each is drawn for.

#include <array>
#include <string_view>

namespace zonara {

// A face picture, its side in pixels, and the size value a small clock is laid out with:
// the radius its hands reach on that picture.
struct ClockFace {
    std::string_view file;
    int size = 0;
    int sizeValue = 0;
    friend bool operator==(const ClockFace&, const ClockFace&) = default;
};

// Smallest first. The globe's strip uses some of them with other size values.
inline constexpr std::array<ClockFace, 4> clockFaces{{
    {"clock42x42.jpg", 42, 20},
    {"clock56x56.jpg", 56, 25},
    {"clock64x64.jpg", 64, 30},
    {"clock128x128.jpg", 128, 60},
}};

} // namespace zonara

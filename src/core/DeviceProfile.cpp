#include "core/DeviceProfile.h"

#include <array>
#include <utility>

namespace zonara {

namespace {

constexpr std::array<std::pair<int, int>, 6> knownSizes = {{
    {176, 220},
    {240, 320},
    {480, 640},
    {220, 176},
    {320, 240},
    {640, 480},
}};

} // namespace

std::optional<DeviceProfile> deviceProfile(int width, int height, bool secondDisplay) {
    for (const auto& [w, h] : knownSizes) {
        if (w == width && h == height) {
            const bool high = width == 480 || width == 640;
            return DeviceProfile{width, height, high ? 192 : 96, high, secondDisplay};
        }
    }
    return std::nullopt;
}

} // namespace zonara

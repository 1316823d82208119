#pragma once
// The screen a view is laid out for: its size in pixels and dots per inch.

#include <optional>

namespace zonara {

struct DeviceProfile {
    int width = 480;
    int height = 640;
    int dpi = 192;
    bool highResolution = true;
    bool secondDisplay = false;

    friend bool operator==(const DeviceProfile&, const DeviceProfile&) = default;
};

// The known profiles are 176x220, 240x320, 480x640 and their landscape forms;
// 480- and 640-wide ones are high resolution at 192 dpi, the rest 96 dpi.
// Nothing for any other size.
std::optional<DeviceProfile> deviceProfile(int width, int height, bool secondDisplay = false);

} // namespace zonara

#pragma once
// Which background picture the weather window shows, and the part of it that fills the window.

#include <string_view>

namespace zonara {

// The picture made for the portrait form of the screen's size; a landscape
// screen takes its portrait picture, and a size without a picture the one
// whose width is nearest the screen's shorter side.
std::string_view weatherBackgroundFile(int width, int height);

struct PictureCrop {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PictureCrop&, const PictureCrop&) = default;
};

// The part of a picture that, scaled to the area, covers it without
// distortion: centred across, and from the picture's bottom down the other
// way, so the ground of the picture stays in sight.
PictureCrop coverCrop(int pictureWidth, int pictureHeight, int areaWidth, int areaHeight);

} // namespace zonara

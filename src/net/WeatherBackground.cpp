#include "net/WeatherBackground.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zonara {

namespace {

struct Background {
    int width;
    int height;
    std::string_view file;
};

constexpr std::array<Background, 3> backgrounds = {{
    {176, 220, "weather176x220.jpg"},
    {240, 320, "weather240x320.jpg"},
    {480, 640, "weather480x640.jpg"},
}};

} // namespace

std::string_view weatherBackgroundFile(int width, int height) {
    const int shorter = std::min(width, height);
    const int longer = std::max(width, height);
    const Background* best = &backgrounds.front();
    for (const Background& picture : backgrounds) {
        if (picture.width == shorter && picture.height == longer)
            return picture.file;
        if (std::abs(picture.width - shorter) < std::abs(best->width - shorter))
            best = &picture;
    }
    return best->file;
}

PictureCrop coverCrop(int pictureWidth, int pictureHeight, int areaWidth, int areaHeight) {
    if (pictureWidth <= 0 || pictureHeight <= 0 || areaWidth <= 0 || areaHeight <= 0)
        return {};
    // The picture is wider than the area when pw / ph > aw / ah; compared in
    // integers so that equal proportions keep the whole picture.
    const long long wide = (long long)pictureWidth * areaHeight;
    const long long tall = (long long)pictureHeight * areaWidth;
    PictureCrop crop{0, 0, pictureWidth, pictureHeight};
    if (wide > tall) {
        crop.width = int((long long)pictureHeight * areaWidth / areaHeight);
        crop.x = (pictureWidth - crop.width) / 2;
    } else if (tall > wide) {
        crop.height = int((long long)pictureWidth * areaHeight / areaWidth);
        crop.y = pictureHeight - crop.height;
    }
    return crop;
}

} // namespace zonara

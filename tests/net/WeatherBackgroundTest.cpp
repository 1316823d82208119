#include "net/WeatherBackground.h"

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(WeatherBackground, PictureByScreenSizeAndTheCropThatCoversTheWindow) {
    struct Pick {
        int width, height;
        std::string_view file;
    };
    for (const Pick& p :
         {Pick{176, 220, "weather176x220.jpg"}, Pick{220, 176, "weather176x220.jpg"},
          Pick{240, 320, "weather240x320.jpg"}, Pick{320, 240, "weather240x320.jpg"},
          Pick{480, 640, "weather480x640.jpg"}, Pick{640, 480, "weather480x640.jpg"},
          Pick{200, 260, "weather176x220.jpg"}, Pick{800, 600, "weather480x640.jpg"},
          Pick{100, 100, "weather176x220.jpg"}})
        EXPECT_EQ(weatherBackgroundFile(p.width, p.height), p.file) << p.width << "x" << p.height;

    struct Crop {
        int pictureWidth, pictureHeight, areaWidth, areaHeight;
        PictureCrop expected;
    };
    const Crop crops[] = {
        {240, 320, 240, 320, {0, 0, 240, 320}},   // same proportions: all of it
        {240, 320, 480, 640, {0, 0, 240, 320}},   // scaled up whole
        {240, 320, 320, 240, {0, 140, 240, 180}}, // landscape: the bottom part
        {480, 640, 640, 480, {0, 280, 480, 360}},
        {240, 320, 240, 360, {13, 0, 213, 320}}, // taller area: the middle columns
        {240, 320, 0, 320, {0, 0, 0, 0}},
    };
    for (const Crop& c : crops)
        EXPECT_EQ(coverCrop(c.pictureWidth, c.pictureHeight, c.areaWidth, c.areaHeight), c.expected)
            << c.areaWidth << "x" << c.areaHeight;
}

} // namespace
} // namespace zonara

// The shipped weather pictures, as the weather window will load them.

#include <set>
#include <string>

#include <QImage>
#include <QString>
#include <gtest/gtest.h>

#include "net/WeatherIcons.h"
#include "support/ShippedFiles.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;

QImage load(const fs::path& file) {
    return QImage(QString::fromStdString(file.string()));
}

// The mean brightness of the tile's sky in its top band, away from the corners.
int skyBrightness(const QImage& image) {
    long sum = 0;
    int count = 0;
    for (int y = 4; y < 12; ++y) {
        for (int x = 20; x < 76; ++x) {
            sum += qGray(image.pixel(x, y));
            ++count;
        }
    }
    return int(sum / count);
}

TEST(WeatherPictures, EveryIconLoadsWithClearCornersAndNightPicturesAreDarker) {
    const fs::path graphics = test::sourceDir() / "graphics";
    for (int index = 0; index < int(weatherIcons.size()); ++index) {
        const std::string name(weatherIconFile(index));
        SCOPED_TRACE(name);
        const QImage image = load(graphics / name);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.size(), QSize(96, 96));
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(image.pixel(95, 95)), 0);
        EXPECT_EQ(qAlpha(image.pixel(48, 48)), 255);
        // The night pictures of the table; "rain.gif" ends in "n" too.
        const std::set<std::string> nights = {
            "chancetstormn.gif", "mcloudyn.gif",  "mcloudynr.gif", "mcloudyns.gif", "pcloudyn.gif",
            "pcloudynr.gif",     "pcloudyns.gif", "pcloudyrn.gif", "sunnyn.gif",    "tstormn.gif"};
        const bool night = nights.contains(name);
        if (night) {
            EXPECT_LT(skyBrightness(image), 80);
        } else {
            EXPECT_GT(skyBrightness(image), 120);
        }
    }
    for (const auto& [name, width, height] : {std::tuple{"weather176x220.jpg", 176, 220},
                                              {"weather240x320.jpg", 240, 320},
                                              {"weather480x640.jpg", 480, 640}}) {
        const QImage image = load(graphics / name);
        ASSERT_FALSE(image.isNull()) << name;
        EXPECT_EQ(image.size(), QSize(width, height)) << name;
    }
}

} // namespace
} // namespace zonara

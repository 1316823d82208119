// The globe's and the small clocks' pictures as shipped under graphics/: the sizes the
// views are laid out for, maps the right way round, the marker's key colour and the
// faces' background.

#include <cstdlib>
#include <string>

#include <QColor>
#include <QImage>
#include <gtest/gtest.h>

#include "clocks/SmallClock.h"
#include "globe/ClockFaces.h"
#include "globe/GlobeModel.h"
#include "support/ShippedFiles.h"

namespace zonara {
namespace {

QImage shipped(std::string_view name) {
    const auto path = test::sourceDir() / "graphics" / std::string(name);
    return QImage(QString::fromStdString(path.string()));
}

bool near(QRgb pixel, ColorRef colour, int tolerance) {
    return std::abs(qRed(pixel) - redOf(colour)) <= tolerance &&
           std::abs(qGreen(pixel) - greenOf(colour)) <= tolerance &&
           std::abs(qBlue(pixel) - blueOf(colour)) <= tolerance;
}

TEST(ShippedGlobePictures, MapsAreEquirectangularFromTheDateLine) {
    for (const MapPair pair :
         {mapPairFor(*deviceProfile(480, 640)), mapPairFor(*deviceProfile(240, 320))}) {
        const QImage day = shipped(pair.dayFile);
        const QImage night = shipped(pair.nightFile);
        ASSERT_EQ(day.size(), QSize(pair.width, pair.height)) << pair.dayFile;
        ASSERT_EQ(night.size(), QSize(pair.width, pair.height)) << pair.nightFile;

        // Places by longitude and latitude, as the markers find them.
        const auto at = [&](const QImage& image, float longitude, float latitude) {
            return image.pixel(mapColumnOf(longitude, pair.width), mapRowOf(latitude, pair.height));
        };
        struct Place {
            float longitude, latitude;
            bool sea;
            const char* name;
        };
        const Place places[] = {
            {-150, 0, true, "the Pacific"},      {-30, 0, true, "the Atlantic"},
            {80, -20, true, "the Indian Ocean"}, {15, 23, false, "the Sahara"},
            {-63, -10, false, "Amazonia"},       {132, -25, false, "central Australia"},
        };
        for (const Place& p : places) {
            const QRgb pixel = at(day, p.longitude, p.latitude);
            EXPECT_EQ(qBlue(pixel) > qRed(pixel) + 20, p.sea) << p.name << " in " << pair.dayFile;
        }
        // At night western Europe is lit and the Pacific dark.
        EXPECT_GT(qGray(at(night, 2.35f, 48.86f)), 3 * qGray(at(night, -150, 0)) + 20)
            << pair.nightFile;
    }
}

TEST(ShippedGlobePictures, MarkerIsASymbolOnTheKeyColour) {
    const QImage marker = shipped(markerFile);
    ASSERT_FALSE(marker.isNull());
    const int w = marker.width();
    const int h = marker.height();
    ASSERT_GE(w, 9);
    ASSERT_GE(h, 9);
    const ColorRef key = markerKeyColour;
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(w - 1, 0), QPoint(0, h - 1), QPoint(w - 1, h - 1)}) {
        EXPECT_TRUE(near(marker.pixel(corner), key, 0)) << corner.x() << "," << corner.y();
    }
    EXPECT_FALSE(near(marker.pixel(w / 2, h / 2), key, 60));
    // Every pixel is the key exactly or clearly something else, so that leaving the key
    // out leaves no orange fringe.
    int symbol = 0;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const QRgb p = marker.pixel(x, y);
            if (!near(p, key, 0)) {
                EXPECT_FALSE(near(p, key, 40)) << x << "," << y;
                ++symbol;
            }
        }
    }
    EXPECT_GT(symbol, w * h / 3);
}

TEST(ShippedGlobePictures, FacesOnTheSmallClocksBackground) {
    for (const ClockFace& face : clockFaces) {
        const QImage picture = shipped(face.file);
        ASSERT_EQ(picture.size(), QSize(face.size, face.size)) << face.file;
        const int last = face.size - 1;
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)}) {
            EXPECT_TRUE(near(picture.pixel(corner), smallClockBackground, 6))
                << face.file << " " << corner.x() << "," << corner.y();
        }
        // The dial is light where the hands turn: between the centre and the 12 mark.
        EXPECT_GT(qGray(picture.pixel(face.size / 2, face.size / 2 - face.sizeValue / 2)), 200)
            << face.file;
    }
}

} // namespace
} // namespace zonara

#include "clocks/CAnalogueClock.h"

#include <QImage>
#include <gtest/gtest.h>

#include "clocks/QImageSurface.h"

namespace zonara {
namespace {

// A face picture: light on the left half, dark on the right.
QImage splitFace() {
    QImage face(300, 200, QImage::Format_RGB32);
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x)
            face.setPixel(x, y, x < 150 ? qRgb(235, 230, 220) : qRgb(20, 30, 40));
    return face;
}

TEST(CAnalogueClockWidget, DrawsTheEngineHandsOverItsPartOfTheBackground) {
    const QImage face = splitFace();
    for (const QPoint offset : {QPoint(0, 0), QPoint(100, 50), QPoint(200, 100)}) {
        SCOPED_TRACE(offset.x());
        CAnalogueClock clock;
        clock.resize(100, 100);
        clock.setBackground(face, offset);
        clock.engine().setHourColour(rgb(0, 0, 0));
        clock.engine().setMinuteColour(rgb(255, 255, 255));
        clock.setTime(10, 8, 40);
        const QImage shown = clock.grab().toImage();
        ASSERT_EQ(shown.size(), QSize(100, 100));

        // The same hands drawn by the engine on a copy of the face region;
        // parts beyond the picture are black.
        MemorySurface expected(100, 100);
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                const QPoint p = offset + QPoint(x, y);
                if (face.rect().contains(p))
                    expected.setPixel(x, y, fromQRgb(face.pixel(p)));
            }
        AnalogueClock engine;
        engine.applyClientSize(100, 100);
        engine.setHourColour(rgb(0, 0, 0));
        engine.setMinuteColour(rgb(255, 255, 255));
        engine.setTime(10, 8, 40);
        engine.drawHands(expected);

        int differences = 0;
        int handPixels = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                const ColorRef got = fromQRgb(shown.pixel(x, y));
                differences += got != expected.getPixel(x, y);
                const QPoint p = offset + QPoint(x, y);
                const ColorRef under = face.rect().contains(p) ? fromQRgb(face.pixel(p)) : 0;
                handPixels += got != under;
            }
        EXPECT_EQ(differences, 0);
        EXPECT_GT(handPixels, 100);
    }
}

TEST(CAnalogueClockWidget, DefaultsFromItsSizeAndHidesSeconds) {
    QImage face(160, 100, QImage::Format_RGB32);
    face.fill(qRgb(255, 255, 255));
    CAnalogueClock clock;
    clock.resize(160, 100);
    clock.setBackground(face, QPoint(0, 0));
    clock.setTime(0, 0, 15);
    QImage shown = clock.grab().toImage();
    EXPECT_EQ(clock.engine().radius(), 50);
    EXPECT_EQ(clock.engine().centre(), (PixelPoint{80, 50}));
    // The second hand points right: 75 % of 50 is 37, reaching 80 + 8000·37/7000 = 122.
    EXPECT_EQ(fromQRgb(shown.pixel(122, 50)), rgb(255, 0, 0));
    EXPECT_EQ(fromQRgb(shown.pixel(123, 50)), rgb(255, 255, 255));
    clock.hideSeconds(true);
    shown = clock.grab().toImage();
    EXPECT_EQ(fromQRgb(shown.pixel(110, 50)), rgb(255, 255, 255));
}

} // namespace
} // namespace zonara

#include "clocks/CAnalogueClock.h"

#include <QImage>
#include <gtest/gtest.h>

#include "controls/QImageSurface.h"

namespace zonara {
namespace {

// The widget shows exactly what the engine draws over its part of the owner's picture
// (light on the left half, dark on the right); parts beyond the picture are black.
TEST(CAnalogueClockWidget, DrawsTheEngineHandsOverItsPartOfTheBackground) {
    QImage face(300, 200, QImage::Format_RGB32);
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x)
            face.setPixel(x, y, x < 150 ? qRgb(235, 230, 220) : qRgb(20, 30, 40));
    for (const QPoint offset : {QPoint(0, 0), QPoint(100, 50), QPoint(200, 100)}) {
        SCOPED_TRACE(offset.x());
        CAnalogueClock clock(ClockSource::fixedAt(SystemTime{}));
        clock.resize(100, 100);
        clock.setBackground(face, offset);
        clock.engine().setHourColour(rgb(0, 0, 0));
        clock.engine().setMinuteColour(rgb(255, 255, 255));
        clock.setTime(10, 8, 40);
        const bool hide = offset.x() == 200; // the widget passes the choice on
        clock.hideSeconds(hide);
        const QImage shown = clock.grab().toImage();
        ASSERT_EQ(shown.size(), QSize(100, 100));

        MemorySurface expected(100, 100);
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x)
                if (face.rect().contains(offset + QPoint(x, y)))
                    expected.setPixel(x, y, fromQRgb(face.pixel(offset + QPoint(x, y))));
        const MemorySurface under = expected;
        AnalogueClock engine;
        engine.applyClientSize(100, 100);
        engine.setHourColour(rgb(0, 0, 0));
        engine.setMinuteColour(rgb(255, 255, 255));
        engine.setTime(10, 8, 40);
        engine.setHideSeconds(hide);
        engine.drawHands(expected);

        int differences = 0;
        int handPixels = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 100; ++x) {
                differences += fromQRgb(shown.pixel(x, y)) != expected.getPixel(x, y);
                handPixels += fromQRgb(shown.pixel(x, y)) != under.getPixel(x, y);
            }
        EXPECT_EQ(differences, 0);
        EXPECT_GT(handPixels, 100);
    }
}

} // namespace
} // namespace zonara

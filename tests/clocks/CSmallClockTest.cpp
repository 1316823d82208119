#include "clocks/CSmallClock.h"

#include <QImage>
#include <gtest/gtest.h>

#include "controls/QImageSurface.h"

#include "support/SlotCity.h"

namespace zonara {
namespace {

const ClockSlot london = test::slotCity(u"London", 85, 0, -0.06f, 51.51f);
const ClockSlot tokyo = test::slotCity(u"Tokyo", 235, 0, 139.69f, 35.69f);

const QRgb faceGreen = qRgb(40, 160, 60);

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

QFont pixelFont(int pixels, bool bold) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

// London's clock with its difference to Tokyo, face beside four lines.
struct Clock {
    QImage face{64, 64, QImage::Format_RGB32};
    CSmallClock widget;
    Clock(int width = 240, int height = 100) {
        face.fill(faceGreen);
        widget.resize(width, height);
        widget.setFonts(pixelFont(12, false), pixelFont(12, true));
        widget.setFace(face, 64, 30);
        widget.setCity(london, tokyo);
    }
    QImage image() { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

TEST(CSmallClock, RepaintsOnlyThePartsWhoseContentChanged) {
    Clock c;
    const SmallClockLayout& l = c.widget.layout();
    ASSERT_FALSE(toQRect(l.date).isEmpty());
    enum Part { Face = 1, Time = 2, Date = 4, Difference = 8, Cue = 16, All = 32 };
    struct Row {
        const char* utc;
        int parts;
        const char* difference; // what the difference line then says
    };
    const Row rows[] = {
        {"2026-03-10T10:00:00Z", All, "\u22129"},
        {"2026-03-10T10:00:01Z", Face, "\u22129"},
        {"2026-03-10T10:00:01Z", 0, "\u22129"}, // the same instant draws nothing
        {"2026-03-10T10:01:00Z", Face | Time, "\u22129"},
        // Tokyo's date turns first; London is then a day behind it, and in the dark.
        {"2026-03-10T23:59:59Z", Face | Time | Difference | Cue, "\u22129 yesterday"},
        {"2026-03-11T00:00:00Z", Face | Time | Date | Difference, "\u22129"},
        // The hour hand moves on every 12 minutes only, the minute hand every minute.
        {"2026-03-11T00:00:30Z", Face, "\u22129"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.utc);
        c.widget.showTime(*parseIsoUtc(r.utc));
        QRegion expected;
        if (r.parts & All)
            expected = c.widget.rect();
        if (r.parts & Face)
            expected += toQRect(l.face);
        if (r.parts & Time)
            expected += toQRect(l.time);
        if (r.parts & Date)
            expected += toQRect(l.date);
        if (r.parts & Difference)
            expected += toQRect(l.difference);
        if (r.parts & Cue)
            expected += toQRect(l.cue);
        EXPECT_EQ(c.widget.lastChange(), expected);
        EXPECT_EQ(c.widget.state().texts.differenceLine(), r.difference);
    }
    // A new city changes its name line.
    c.widget.setCity(tokyo, std::nullopt);
    c.widget.showTime(*parseIsoUtc("2026-03-11T00:00:30Z"));
    EXPECT_TRUE(c.widget.lastChange().contains(toQRect(l.name)));
    EXPECT_EQ(c.widget.state().texts.differenceLine(), "");
}

TEST(CSmallClock, DrawsFaceHandsCueAndMark) {
    struct Row {
        const char* utc;
        CSmallClock::Mark mark;
        bool sunUp;
        QRgb corner; // the page's corner pixel: the mark's colour or the background
    };
    const QRgb background = toQRgb(smallClockBackground);
    const Row rows[] = {
        {"2026-03-10T12:00:15Z", CSmallClock::Mark::None, true, background},
        {"2026-03-10T00:00:15Z", CSmallClock::Mark::Selected, false, toQRgb(smallClockSelection)},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.utc);
        Clock c;
        c.widget.setMark(r.mark);
        c.widget.showTime(*parseIsoUtc(r.utc));
        const QImage image = c.image();
        const SmallClockLayout& l = c.widget.layout();
        EXPECT_EQ(image.pixel(1, 1), r.corner);
        EXPECT_EQ(image.pixel(2, 50), r.corner);
        EXPECT_EQ(image.pixel(4, 4), background); // inside the frame
        // The face picture, and at 15 seconds the red second hand pointing right.
        EXPECT_EQ(image.pixel(l.face.left + 1, l.face.top + 1), faceGreen);
        const QRgb hand = image.pixel(l.centre.x + l.radius * 3 / 4, l.centre.y);
        EXPECT_GT(qRed(hand), 150);
        EXPECT_LT(qGreen(hand), 100);
        // The sun's yellow, or the moon's pale grey, in the middle of the cue.
        const QPoint cue = toQRect(l.cue).center();
        const QRgb middle = image.pixel(cue.x() - 1, cue.y());
        EXPECT_EQ(qRed(middle) > 240 && qBlue(middle) < 100, r.sunUp);
        EXPECT_EQ(c.widget.state().texts.sunUp, r.sunUp);
    }
}

TEST(CSmallClock, FaceShrinksIntoALowClock) {
    Clock c(200, 40); // the 64-pixel face gets less than 40
    c.widget.showTime(*parseIsoUtc("2026-03-10T12:00:00Z"));
    const SmallClockLayout& l = c.widget.layout();
    ASSERT_LT(l.face.height(), 40);
    ASSERT_EQ(l.face.width(), l.face.height());
    const QImage image = c.image();
    EXPECT_EQ(image.pixel(l.face.left, l.face.top), faceGreen);
    EXPECT_EQ(image.pixel(l.face.right - 1, l.face.bottom - 1), faceGreen);
    EXPECT_EQ(image.pixel(l.face.right, l.face.bottom - 1), toQRgb(smallClockBackground));
    // The hands reach in proportion: 30 of 64.
    EXPECT_EQ(l.radius, 30 * l.face.width() / 64);
}

} // namespace
} // namespace zonara

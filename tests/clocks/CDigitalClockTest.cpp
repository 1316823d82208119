#include "clocks/CDigitalClock.h"

#include <string>

#include <QImage>
#include <gtest/gtest.h>

#include "controls/QImageSurface.h"

namespace zonara {
namespace {

constexpr std::uint8_t standardCode[10] = {0x3F, 0x06, 0x5B, 0x4F, 0x66,
                                           0x6D, 0x7D, 0x07, 0x7F, 0x6F};

// a = top, b = upper right, c = lower right, d = bottom, e = lower left,
// f = upper left, g = middle.
bool lit(char digit, Segment s) {
    static constexpr int bitOf[7] = {0, 5, 4, 3, 2, 1, 6}; // in Segment order
    return (standardCode[digit - '0'] >> bitOf[int(s)] & 1) != 0;
}

const DigitalClockColours colours{rgb(250, 100, 0), rgb(40, 40, 40), rgb(255, 255, 0),
                                  rgb(60, 60, 60), rgb(0, 0, 30)};

ColorRef at(const QImage& image, int x, int y) {
    return fromQRgb(image.pixel(x, y));
}

int countColour(const QImage& image, QRect area, ColorRef colour) {
    int n = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            n += at(image, x, y) == colour;
    return n;
}

QImage grabClock(int hour, int minute, int second, std::uint32_t flags, bool use24Hour) {
    CDigitalClock clock;
    clock.resize(300, 100);
    clock.setColours(colours);
    clock.setFlags(flags);
    clock.setUse24Hour(use24Hour);
    clock.setTime(hour, minute, second);
    return clock.grab().toImage();
}

TEST(CDigitalClockWidget, PaintsLitAndUnlitSegmentsOfTheShownDigits) {
    struct Case {
        int hour, minute, second;
        std::uint32_t flags;
        bool use24Hour;
        std::string digits; // what the segments must show
        int amPm;           // 0 none, 1 AM lit, 2 PM lit
    };
    const Case cases[] = {
        {0, 5, 9, 3, false, "120509", 1},    {12, 30, 0, 3, false, "123000", 2},
        {13, 0, 0, 3, false, "010000", 2},   {13, 0, 0, 3, true, "130000", 2},
        {0, 1, 2, 9, false, "000102", 0},    {13, 45, 0, 2, false, "0145", 2},
        {23, 59, 58, 1, false, "115958", 0}, {18, 46, 37, 3, false, "064637", 2},
    };
    const auto boxes = digitBoxes(300, 100);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.digits);
        const QImage image = grabClock(c.hour, c.minute, c.second, c.flags, c.use24Hour);
        ASSERT_EQ(image.size(), QSize(300, 100));
        for (std::size_t d = 0; d < c.digits.size(); ++d)
            for (Segment s : segmentOrder) {
                const PixelRect r = segmentRect(boxes[d], s);
                const ColorRef expected = lit(c.digits[d], s) ? colours.fillOn : colours.fillOff;
                EXPECT_EQ(at(image, (r.left + r.right) / 2, (r.top + r.bottom) / 2), expected)
                    << "digit " << d << " segment " << int(s);
            }
        // Without seconds their boxes stay background.
        if (c.digits.size() == 4) {
            EXPECT_EQ(countColour(image, QRect(204, 2, 78, 96), colours.backFill), 78 * 96);
        }
        // The gap between digits shows the background fill; the colon dots are always lit.
        EXPECT_EQ(at(image, 45, 50), colours.backFill);
        EXPECT_EQ(at(image, 94, 36), colours.fillOn);
        EXPECT_EQ(at(image, 94, 72), colours.fillOn);
        EXPECT_EQ(at(image, 193, 36), c.digits.size() == 6 ? colours.fillOn : colours.backFill);

        if (c.amPm == 0) {
            EXPECT_EQ(countColour(image, QRect(288, 0, 12, 24), colours.backFill), 12 * 24);
            continue;
        }
        // The lit word in fillOn, the other in fillOff, nothing left of the pair's box.
        const QRect litWord(288, c.amPm == 1 ? 2 : 12, 12, 10);
        const QRect unlitWord(288, c.amPm == 1 ? 12 : 2, 12, 10);
        EXPECT_GT(countColour(image, litWord, colours.fillOn), 8);
        EXPECT_EQ(countColour(image, litWord, colours.fillOff), 0);
        EXPECT_GT(countColour(image, unlitWord, colours.fillOff), 8);
        EXPECT_EQ(countColour(image, unlitWord, colours.fillOn), 0);
        EXPECT_EQ(countColour(image, QRect(283, 0, 5, 100), colours.backFill), 5 * 100);
    }
}

TEST(CDigitalClockWidget, BackgroundFlagLeavesTheOwnersPixels) {
    CDigitalClock clock;
    clock.resize(200, 60);
    clock.setColours(colours);
    clock.setTime(10, 10, 10);
    const QRgb marker = qRgb(255, 0, 255);
    for (const auto flags : {3u, 7u}) {
        QImage target(200, 60, QImage::Format_RGB32);
        target.fill(marker);
        clock.setFlags(flags);
        clock.renderTo(target);
        const ColorRef corner = fromQRgb(target.pixel(0, 0));
        EXPECT_EQ(corner, flags == 7u ? fromQRgb(marker) : colours.backFill) << flags;
        // Segments draw either way: the top of the first digit, a lit 1 has none.
        const PixelRect top = segmentRect(digitBoxes(200, 60)[0], Segment::Top);
        EXPECT_EQ(fromQRgb(target.pixel((top.left + top.right) / 2, top.top + 1)), colours.fillOff);
    }
}

} // namespace
} // namespace zonara

#include "controls/CKeypad.h"

#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <gtest/gtest.h>

#include "controls/QImageSurface.h"

namespace zonara {
namespace {

const std::pair<int, int> screens[] = {{176, 220}, {240, 320}, {480, 640},
                                       {220, 176}, {320, 240}, {640, 480}};

bool overlaps(const PixelRect& a, const PixelRect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(KeypadLayout, FitsEveryScreen) {
    for (const auto& [w, h] : screens) {
        SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h));
        const KeypadLayout pad = keypadLayout(*deviceProfile(w, h));
        // Room is left for the unit lists and the soft-key bar: below the pad
        // on a portrait screen, beside it on a landscape one.
        if (w < h) {
            EXPECT_LE(pad.width, w);
            EXPECT_LE(pad.height, h * 3 / 5);
        } else {
            EXPECT_LE(pad.width, w * 5 / 8);
            EXPECT_LE(pad.height, h * 6 / 7);
        }
        EXPECT_EQ(pad.display, (PixelRect{0, 0, pad.width, pad.display.bottom}));
        std::set<std::pair<int, int>> corners;
        for (int i = 0; i < keypadKeyCount; ++i) {
            const PixelRect& key = pad.keys[std::size_t(i)];
            EXPECT_EQ(key.width(), pad.keys[0].width()) << i;
            EXPECT_EQ(key.height(), pad.keys[0].height()) << i;
            EXPECT_GE(key.height(), 20) << i;
            EXPECT_GT(key.top, pad.display.bottom) << i;
            EXPECT_LE(key.right, pad.width) << i;
            EXPECT_LE(key.bottom, pad.height) << i;
            corners.insert({key.left, key.top});
            for (int j = i + 1; j < keypadKeyCount; ++j)
                EXPECT_FALSE(overlaps(key, pad.keys[std::size_t(j)])) << i << " " << j;
            EXPECT_EQ(keypadKeyAt(pad, key.left, key.top), i);
            EXPECT_EQ(keypadKeyAt(pad, key.right - 1, key.bottom - 1), i);
        }
        EXPECT_EQ(corners.size(), std::size_t(keypadKeyCount));
        // The last pixel row is a key's; gaps and the display are no key.
        EXPECT_EQ(pad.keys[0].bottom, pad.height);
        EXPECT_EQ(keypadKeyAt(pad, pad.keys[19].right, pad.keys[19].top), std::nullopt);
        EXPECT_EQ(keypadKeyAt(pad, 1, 1), std::nullopt);
    }
    // Each key index sits in the grid exactly once.
    std::set<int> seen;
    for (const auto& row : keypadGrid)
        for (int key : row)
            seen.insert(key);
    EXPECT_EQ(seen.size(), std::size_t(keypadKeyCount));
    EXPECT_EQ(*seen.rbegin(), keypadKeyCount - 1);
}

struct Pressed {
    std::vector<int> keys;
    std::vector<int> commands;
};

void listen(CKeypad& pad, Pressed& pressed) {
    QObject::connect(&pad, &CKeypad::keyPressed, [&](int index) { pressed.keys.push_back(index); });
    QObject::connect(&pad, &CKeypad::command, [&](int id) { pressed.commands.push_back(id); });
}

void mouse(CKeypad& pad, QEvent::Type type, QPoint at) {
    QMouseEvent event(type, QPointF(at), pad.mapToGlobal(QPointF(at)), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&pad, &event);
}

QPoint centre(const PixelRect& r) {
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

TEST(CKeypadWidget, ClicksSendTheKeyAndItsCommand) {
    CKeypad pad;
    pad.setProfile(*deviceProfile(240, 320));
    EXPECT_EQ(pad.size(), QSize(pad.layout().width, pad.layout().height));
    Pressed pressed;
    listen(pad, pressed);
    for (int i = 0; i < keypadKeyCount; ++i) {
        const QPoint at = centre(pad.layout().keys[std::size_t(i)]);
        mouse(pad, QEvent::MouseButtonPress, at);
        mouse(pad, QEvent::MouseButtonRelease, at);
    }
    std::vector<int> all, ids;
    for (int i = 0; i < keypadKeyCount; ++i) {
        all.push_back(i);
        ids.push_back(7000 + i);
    }
    EXPECT_EQ(pressed.keys, all);
    EXPECT_EQ(pressed.commands, ids);

    // Released over another key, or pressed on the display: nothing.
    pressed = {};
    mouse(pad, QEvent::MouseButtonPress, centre(pad.layout().keys[3]));
    mouse(pad, QEvent::MouseButtonRelease, centre(pad.layout().keys[4]));
    mouse(pad, QEvent::MouseButtonPress, centre(pad.layout().display));
    mouse(pad, QEvent::MouseButtonRelease, centre(pad.layout().display));
    EXPECT_TRUE(pressed.keys.empty());
}

void key(CKeypad& pad, QEvent::Type type, int code, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(type, code, modifiers);
    QApplication::sendEvent(&pad, &event);
}

void click(CKeypad& pad, int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    key(pad, QEvent::KeyPress, code, modifiers);
    key(pad, QEvent::KeyRelease, code, modifiers);
}

TEST(CKeypadWidget, HardwareKeysWithTheShiftRules) {
    struct Case {
        int code;
        Qt::KeyboardModifiers modifiers;
        std::optional<int> index;
    };
    const Case cases[] = {
        {Qt::Key_0, Qt::NoModifier, 0},
        {Qt::Key_8, Qt::NoModifier, 8},
        {Qt::Key_8, Qt::ShiftModifier, 11},
        {Qt::Key_3, Qt::ShiftModifier, 3},
        {Qt::Key_9, Qt::KeypadModifier, 9},
        {Qt::Key_Asterisk, Qt::NoModifier, 11},
        {Qt::Key_Equal, Qt::NoModifier, 14},
        {Qt::Key_Equal, Qt::ShiftModifier, 12},
        {Qt::Key_Plus, Qt::NoModifier, 12},
        {Qt::Key_Minus, Qt::NoModifier, 13},
        {Qt::Key_Minus, Qt::ShiftModifier, 13},
        {Qt::Key_Period, Qt::NoModifier, 15},
        {Qt::Key_Slash, Qt::ShiftModifier, 10},
        {Qt::Key_Backspace, Qt::NoModifier, 18},
        {Qt::Key_A, Qt::NoModifier, std::nullopt},
        {Qt::Key_Return, Qt::NoModifier, std::nullopt},
        {Qt::Key_Shift, Qt::ShiftModifier, std::nullopt},
    };
    for (const Case& c : cases) {
        CKeypad pad;
        Pressed pressed;
        listen(pad, pressed);
        click(pad, c.code, c.modifiers);
        EXPECT_EQ(pressed.keys, c.index ? std::vector<int>{*c.index} : std::vector<int>{})
            << std::hex << c.code << " " << c.modifiers.toInt();
    }

    // Shift as its own key: held over the next key, cleared by any release.
    CKeypad pad;
    Pressed pressed;
    listen(pad, pressed);
    key(pad, QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    click(pad, Qt::Key_8);
    click(pad, Qt::Key_8);
    key(pad, QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    key(pad, QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier);
    click(pad, Qt::Key_Equal);
    key(pad, QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier);
    click(pad, Qt::Key_A);
    click(pad, Qt::Key_Equal);
    EXPECT_EQ(pressed.keys, (std::vector<int>{11, 8, 14, 14}));
    EXPECT_EQ(pressed.commands, (std::vector<int>{7011, 7008, 7014, 7014}));

    // A held key repeats nothing.
    pressed = {};
    QKeyEvent repeat(QEvent::KeyRelease, Qt::Key_5, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(&pad, &repeat);
    EXPECT_TRUE(pressed.keys.empty());
}

int countColour(const QImage& image, const PixelRect& r, ColorRef colour) {
    int n = 0;
    for (int y = r.top; y < r.bottom; ++y)
        for (int x = r.left; x < r.right; ++x)
            n += fromQRgb(image.pixel(x, y)) == colour;
    return n;
}

TEST(CKeypadWidget, FacesAndDisplay) {
    const char* faces[] = {"0", "1",  "2",  "3",  "4",    "5",   "6",  "7", "8",
                           "9", "÷",  "x",  "+",  "-",    "=",   ".",  "C", "CON",
                           "«", "MC", "MR", "M+", "sqrt", "1/x", "+/-"};
    for (int i = 0; i < keypadKeyCount; ++i)
        EXPECT_EQ(CKeypad::face(i), QString::fromUtf8(faces[i])) << i;
    EXPECT_EQ(CKeypad::face(25), QString());

    CKeypad pad;
    pad.setProfile(*deviceProfile(480, 640));
    EXPECT_EQ(pad.displayText(), QStringLiteral("0 "));
    pad.setDisplayText(QStringLiteral("12.5"));
    EXPECT_EQ(pad.displayText(), QStringLiteral("12.5 "));

    // Digit faces are white, the others red; nothing else on a key is either.
    const QImage image = pad.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const KeypadLayout& layout = pad.layout();
    for (int i = 0; i < keypadKeyCount; ++i) {
        const PixelRect& r = layout.keys[std::size_t(i)];
        const bool digit = i <= 9;
        EXPECT_GT(countColour(image, r, digit ? digitFaceColour : operatorFaceColour), 3) << i;
        EXPECT_EQ(countColour(image, r, digit ? operatorFaceColour : digitFaceColour), 0) << i;
    }
    // The display shows dark text on its light ground, at its right end.
    const PixelRect d = layout.display;
    const PixelRect rightHalf{d.left + d.width() / 2, d.top + 2, d.right - 2, d.bottom - 2};
    const PixelRect leftHalf{d.left + 2, d.top + 2, d.left + d.width() / 2, d.bottom - 2};
    EXPECT_GT(countColour(image, rightHalf, rgb(0, 0, 0)), 10);
    EXPECT_EQ(countColour(image, leftHalf, rgb(0, 0, 0)), 0);

    // A key held down is drawn differently until released.
    const PixelRect five = layout.keys[5];
    mouse(pad, QEvent::MouseButtonPress, centre(five));
    const QImage down = pad.grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_NE(down.copy(five.left, five.top, five.width(), five.height()),
              image.copy(five.left, five.top, five.width(), five.height()));
    mouse(pad, QEvent::MouseButtonRelease, centre(five));
    const QImage up = pad.grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(up.copy(five.left, five.top, five.width(), five.height()),
              image.copy(five.left, five.top, five.width(), five.height()));
}

} // namespace
} // namespace zonara

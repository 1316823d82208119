#include "controls/CKeypad.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

namespace zonara {

namespace {

constexpr int minimumDisplayPixels = 8;

// The worded faces, where the translations find them.
constexpr const char* translatedFaces[] = {
    QT_TRANSLATE_NOOP("CKeypad", "CON"),  QT_TRANSLATE_NOOP("CKeypad", "MC"),
    QT_TRANSLATE_NOOP("CKeypad", "MR"),   QT_TRANSLATE_NOOP("CKeypad", "M+"),
    QT_TRANSLATE_NOOP("CKeypad", "sqrt"), QT_TRANSLATE_NOOP("CKeypad", "1/x"),
    QT_TRANSLATE_NOOP("CKeypad", "+/-"),
};

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

QColor toQColor(ColorRef c) {
    return QColor(redOf(c), greenOf(c), blueOf(c));
}

struct VirtualKey {
    int code = 0;
    bool shifted = false; // the character itself needs Shift on the handheld
};

// The handheld's key for a key event: '*' and '+' are Shift+8 and Shift+=
// there, so they carry their Shift with them.
std::optional<VirtualKey> virtualKeyOf(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return VirtualKey{'0' + (key - Qt::Key_0)};
    switch (key) {
    case Qt::Key_Asterisk:
        return VirtualKey{'8', true};
    case Qt::Key_Plus:
        return VirtualKey{virtualKey::equalsPlus, true};
    case Qt::Key_Equal:
        return VirtualKey{virtualKey::equalsPlus};
    case Qt::Key_Minus:
        return VirtualKey{virtualKey::minus};
    case Qt::Key_Period:
        return VirtualKey{virtualKey::period};
    case Qt::Key_Slash:
        return VirtualKey{virtualKey::slash};
    case Qt::Key_Backspace:
        return VirtualKey{virtualKey::backspace};
    case Qt::Key_Shift:
        return VirtualKey{virtualKey::shift};
    default:
        return std::nullopt;
    }
}

} // namespace

CKeypad::CKeypad(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("keypad"));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setProfile(DeviceProfile{});
}

void CKeypad::setProfile(const DeviceProfile& profile) {
    geometry = keypadLayout(profile);
    setFixedSize(geometry.width, geometry.height);
    update();
}

void CKeypad::setDisplayText(const QString& text) {
    const QString line = text + QLatin1Char(' ');
    if (line == shown)
        return;
    shown = line;
    update(toQRect(geometry.display));
}

QString CKeypad::face(int index) {
    if (index < 0 || index >= keypadKeyCount)
        return {};
    const KeypadKey& key = keypadKeys[std::size_t(index)];
    const QByteArray text(key.face.data(), qsizetype(key.face.size()));
    if (!key.translated)
        return QString::fromUtf8(text);
    return QCoreApplication::translate("CKeypad", text.constData());
}

bool CKeypad::hardwareKeyPress(const QKeyEvent& event) {
    const auto vk = virtualKeyOf(event);
    if (!vk)
        return false;
    keys.keyDown(vk->code);
    // The key shows pressed until its release acts.
    const bool shift = keys.shifted() || vk->shifted || event.modifiers() & Qt::ShiftModifier;
    if (const auto index = keypadKeyForHardwareKey(vk->code, shift))
        setDown(*index);
    return true;
}

bool CKeypad::hardwareKeyRelease(const QKeyEvent& event) {
    const auto vk = virtualKeyOf(event);
    if (!vk) {
        keys.keyUp(0);
        return false;
    }
    const bool shiftHeld = vk->shifted || event.modifiers() & Qt::ShiftModifier;
    const auto index = keys.keyUp(vk->code, shiftHeld);
    setDown(-1);
    if (index)
        press(*index);
    return true;
}

void CKeypad::press(int index) {
    Q_EMIT command(keypadCommandBase + index);
    Q_EMIT keyPressed(index);
}

void CKeypad::setDown(int index) {
    if (index == downKey)
        return;
    if (downKey >= 0)
        update(toQRect(geometry.keys[std::size_t(downKey)]));
    downKey = index;
    if (downKey >= 0)
        update(toQRect(geometry.keys[std::size_t(downKey)]));
}

void CKeypad::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint at = event->position().toPoint();
    if (const auto index = keypadKeyAt(geometry, at.x(), at.y()))
        setDown(*index);
}

void CKeypad::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || downKey < 0)
        return;
    const int was = downKey;
    setDown(-1);
    const QPoint at = event->position().toPoint();
    // Like a button: only a release over the key that went down presses it.
    if (keypadKeyAt(geometry, at.x(), at.y()) == was)
        press(was);
}

void CKeypad::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !hardwareKeyPress(*event))
        QWidget::keyPressEvent(event);
}

void CKeypad::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !hardwareKeyRelease(*event))
        QWidget::keyReleaseEvent(event);
}

void CKeypad::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());

    const QRect display = toQRect(geometry.display);
    painter.fillRect(display, QColor(232, 240, 224));
    painter.setPen(QColor(60, 60, 60));
    painter.drawRect(display.adjusted(0, 0, -1, -1));
    const QRect line = display.adjusted(2, 0, -2, 0);
    QFont displayFont = font();
    // A long number gets a smaller face rather than lose its first digits;
    // one too long for the smallest keeps its last digits in view.
    for (int size = geometry.displayPixels; size >= minimumDisplayPixels; --size) {
        displayFont.setPixelSize(size);
        if (QFontMetrics(displayFont).horizontalAdvance(shown) <= line.width())
            break;
    }
    painter.setFont(displayFont);
    painter.setPen(Qt::black);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, shown);

    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < keypadKeyCount; ++i)
        paintKey(painter, i);
}

void CKeypad::paintKey(QPainter& painter, int index) const {
    const QRect box = toQRect(geometry.keys[std::size_t(index)]);
    const bool down = index == downKey;
    QLinearGradient shade(box.topLeft(), box.bottomLeft());
    shade.setColorAt(0, down ? QColor(30, 30, 34) : QColor(96, 98, 108));
    shade.setColorAt(1, down ? QColor(70, 72, 80) : QColor(36, 37, 42));
    painter.setPen(QPen(QColor(16, 16, 18), 1));
    painter.setBrush(shade);
    const qreal radius = box.height() / 6.0;
    painter.drawRoundedRect(QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);

    QFont faceFont = font();
    faceFont.setBold(true);
    faceFont.setPixelSize(geometry.facePixels);
    const QString text = face(index);
    // A worded face that is too wide for a small key gets a smaller font.
    const int room = box.width() - 4;
    for (int size = geometry.facePixels; size > 6; --size) {
        faceFont.setPixelSize(size);
        if (QFontMetrics(faceFont).horizontalAdvance(text) <= room)
            break;
    }
    painter.setFont(faceFont);
    painter.setPen(toQColor(keypadFaceColour(index)));
    painter.drawText(down ? box.translated(1, 1) : box, Qt::AlignCenter, text);
}

} // namespace zonara

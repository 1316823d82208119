#include "clocks/CAnalogueClock.h"

#include <algorithm>

#include <QPainter>
#include <QResizeEvent>

#include "controls/QImageSurface.h"

namespace zonara {

CAnalogueClock::CAnalogueClock(const ClockSource& source, QWidget* parent) : QWidget(parent) {
    // The buffer covers the whole window on every paint.
    setAttribute(Qt::WA_OpaquePaintEvent);
    const SystemTime now = source.utcNow();
    clock.setTime(now.hour >= 12 ? now.hour - 12 : now.hour, now.minute, now.second);
}

QRect CAnalogueClock::handsArea() {
    clock.applyClientSize(width(), height());
    int left = width(), top = height(), right = -1, bottom = -1;
    for (const HandStroke& stroke : clock.hands()) {
        for (const LineSegment& line : stroke.lines) {
            for (const PixelPoint& p : {line.from, line.to}) {
                left = std::min(left, p.x);
                top = std::min(top, p.y);
                right = std::max(right, p.x);
                bottom = std::max(bottom, p.y);
            }
        }
    }
    if (right < left || bottom < top)
        return {};
    return QRect(QPoint(left - 2, top - 2), QPoint(right + 2, bottom + 2)).intersected(rect());
}

void CAnalogueClock::setBackground(const QImage& picture, QPoint offset) {
    background = picture.format() == QImage::Format_RGB32
                     ? picture
                     : picture.convertToFormat(QImage::Format_RGB32);
    backgroundOffset = offset;
    update();
}

void CAnalogueClock::setTime(int hour, int minute, int second) {
    if (hour == clock.hour() && minute == clock.minute() && second == clock.second())
        return;
    const QRect before = handsArea();
    clock.setTime(hour, minute, second);
    update(QRegion(before) + handsArea());
}

void CAnalogueClock::hideSeconds(bool hide) {
    clock.setHideSeconds(hide);
    update();
}

const QImage& CAnalogueClock::render() {
    if (buffer.size() != size())
        buffer = QImage(size(), QImage::Format_RGB32);
    if (buffer.isNull())
        return buffer;
    // A window drawn before its resize event has been delivered still takes
    // its defaults from the size it has.
    clock.applyClientSize(width(), height());
    // Without a picture, or where it ends, the face is black rather than the
    // previous paint's hands.
    const QRect source(backgroundOffset, size());
    if (background.isNull() || !background.rect().contains(source))
        buffer.fill(Qt::black);
    if (!background.isNull()) {
        QPainter painter(&buffer);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(QPoint(0, 0), background, source);
    }
    QImageSurface surface(buffer);
    clock.drawHands(surface);
    return buffer;
}

void CAnalogueClock::resizeEvent(QResizeEvent* event) {
    clock.applyClientSize(event->size().width(), event->size().height());
    QWidget::resizeEvent(event);
}

void CAnalogueClock::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), render());
}

} // namespace zonara

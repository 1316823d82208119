#include "clocks/CAnalogueClock.h"

#include <algorithm>

#include <QPainter>
#include <QResizeEvent>

#include "controls/ClippedSurface.h"
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
    bufferCurrent = false;
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
    bufferCurrent = false;
    update();
}

const QImage& CAnalogueClock::render(const QRect& area) {
    if (buffer.size() != size()) {
        buffer = QImage(size(), QImage::Format_RGB32);
        bufferCurrent = false;
    }
    if (buffer.isNull())
        return buffer;
    // A window drawn before its resize event has been delivered still takes
    // its defaults from the size it has.
    clock.applyClientSize(width(), height());
    const QRect part = bufferCurrent && !area.isNull() ? area.intersected(rect()) : rect();
    // Without a picture, or where it ends, the face is black rather than the
    // previous paint's hands.
    const QRect source(backgroundOffset + part.topLeft(), part.size());
    QPainter painter(&buffer);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (background.isNull() || !background.rect().contains(source))
        painter.fillRect(part, Qt::black);
    if (!background.isNull())
        painter.drawImage(part.topLeft(), background, source);
    painter.end();
    QImageSurface surface(buffer);
    ClippedSurface clipped(surface, {part.left(), part.top(), part.right() + 1, part.bottom() + 1});
    clock.drawHands(clipped);
    bufferCurrent = true;
    return buffer;
}

void CAnalogueClock::resizeEvent(QResizeEvent* event) {
    clock.applyClientSize(event->size().width(), event->size().height());
    bufferCurrent = false;
    QWidget::resizeEvent(event);
}

void CAnalogueClock::paintEvent(QPaintEvent* event) {
    // Only the part asked for is drawn again: the second hand's old and new
    // places on a quiet tick.
    const QRect area = event->region().boundingRect();
    render(area);
    QPainter painter(this);
    painter.drawImage(area.topLeft(), buffer, area);
}

} // namespace zonara

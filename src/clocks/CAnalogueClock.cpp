#include "clocks/CAnalogueClock.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <QPaintEvent>
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

namespace {

// Where a stroke's lines lie, as small boxes along each line rather than one
// box around it: a diagonal second hand covers a thin band, not a square.
QRegion strokeArea(const HandStroke& stroke) {
    constexpr int piece = 12;
    QRegion area;
    for (const LineSegment& line : stroke.lines) {
        const int dx = line.to.x - line.from.x;
        const int dy = line.to.y - line.from.y;
        const int steps = std::max(1, std::max(std::abs(dx), std::abs(dy)) / piece);
        for (int i = 0; i < steps; ++i) {
            const QPoint a(line.from.x + dx * i / steps, line.from.y + dy * i / steps);
            const QPoint b(line.from.x + dx * (i + 1) / steps, line.from.y + dy * (i + 1) / steps);
            // Two pixels round it: the blend reaches one past the line.
            area += QRect(a, b).normalized().adjusted(-2, -2, 2, 2);
        }
    }
    return area;
}

} // namespace

QRegion CAnalogueClock::handsArea() {
    clock.applyClientSize(width(), height());
    QRegion area;
    for (const HandStroke& stroke : clock.hands())
        area += strokeArea(stroke);
    return area.intersected(rect());
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
    clock.applyClientSize(width(), height());
    const std::vector<HandStroke> before = clock.hands();
    clock.setTime(hour, minute, second);
    const std::vector<HandStroke> after = clock.hands();
    // Only the hands that moved: on most ticks the second hand alone.
    QRegion changed;
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
        const bool same = i < before.size() && i < after.size() &&
                          before[i].lines == after[i].lines && before[i].colour == after[i].colour;
        if (same)
            continue;
        if (i < before.size())
            changed += strokeArea(before[i]);
        if (i < after.size())
            changed += strokeArea(after[i]);
    }
    update(changed.intersected(rect()));
}

void CAnalogueClock::hideSeconds(bool hide) {
    clock.setHideSeconds(hide);
    bufferCurrent = false;
    update();
}

const QImage& CAnalogueClock::render(const QRegion& area) {
    if (buffer.size() != size()) {
        buffer = QImage(size(), QImage::Format_RGB32);
        bufferCurrent = false;
    }
    if (buffer.isNull())
        return buffer;
    // A window drawn before its resize event has been delivered still takes
    // its defaults from the size it has.
    clock.applyClientSize(width(), height());
    const QRegion parts =
        bufferCurrent && !area.isEmpty() ? area.intersected(rect()) : QRegion(rect());
    std::vector<PixelRect> clip;
    QPainter painter(&buffer);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& part : parts) {
        // Without a picture, or where it ends, the face is black rather than
        // the previous paint's hands.
        const QRect source(backgroundOffset + part.topLeft(), part.size());
        if (background.isNull() || !background.rect().contains(source))
            painter.fillRect(part, Qt::black);
        if (!background.isNull())
            painter.drawImage(part.topLeft(), background, source);
        clip.push_back({part.left(), part.top(), part.right() + 1, part.bottom() + 1});
    }
    painter.end();
    QImageSurface surface(buffer);
    ClippedSurface clipped(surface, clip);
    // The hands in their drawing order; a line that misses every part is not
    // walked at all.
    for (const HandStroke& stroke : clock.hands())
        for (const LineSegment& line : stroke.lines)
            if (parts.intersects(
                    QRect(QPoint(line.from.x, line.from.y), QPoint(line.to.x, line.to.y))
                        .normalized()
                        .adjusted(-1, -1, 1, 1)))
                drawAntiAliasedLine(clipped, line.from, line.to, stroke.colour);
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
    render(event->region());
    QPainter painter(this);
    for (const QRect& part : event->region())
        painter.drawImage(part.topLeft(), buffer, part);
}

} // namespace zonara

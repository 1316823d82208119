#include "clocks/CAnalogueClock.h"

#include <QDateTime>
#include <QPainter>
#include <QResizeEvent>
#include <QTime>

#include "controls/QImageSurface.h"

namespace zonara {

CAnalogueClock::CAnalogueClock(QWidget* parent) : QWidget(parent) {
    // The buffer covers the whole window on every paint.
    setAttribute(Qt::WA_OpaquePaintEvent);
    const QTime now = QDateTime::currentDateTimeUtc().time();
    clock.setTime(now.hour() >= 12 ? now.hour() - 12 : now.hour(), now.minute(), now.second());
}

void CAnalogueClock::setBackground(const QImage& picture, QPoint offset) {
    background = picture.format() == QImage::Format_RGB32
                     ? picture
                     : picture.convertToFormat(QImage::Format_RGB32);
    backgroundOffset = offset;
    update();
}

void CAnalogueClock::setTime(int hour, int minute, int second) {
    clock.setTime(hour, minute, second);
    update();
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

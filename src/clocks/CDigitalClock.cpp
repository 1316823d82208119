#include "clocks/CDigitalClock.h"

#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>
#include <QPolygon>

#include "controls/QImageSurface.h"

namespace zonara {

namespace {

QColor toQColor(ColorRef colour) {
    return QColor(toQRgb(colour));
}

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

} // namespace

QFont amPmFontFace() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setWeight(QFont::Normal);
    // A handheld's small bitmap face has no grey edges, and is narrow enough
    // for "AM" to fit the pair's 12-pixel box.
    font.setStyleStrategy(QFont::NoAntialias);
    font.setStretch(QFont::Condensed);
    // The handheld's font is asked for by a cell height of 10 pixels.
    int pixels = 10;
    font.setPixelSize(pixels);
    while (pixels > 6 && QFontMetrics(font).height() > 10)
        font.setPixelSize(--pixels);
    return font;
}

CDigitalClock::CDigitalClock(QWidget* parent) : QWidget(parent), amPmFont(amPmFontFace()) {
    setAttribute(Qt::WA_OpaquePaintEvent, clock.erasesBackground());
}

void CDigitalClock::setColours(const DigitalClockColours& colours) {
    clock.setColours(colours);
    update();
}

void CDigitalClock::setTime(int hour, int minute, int second) {
    const DigitalClockFace before = clock.face(width(), height());
    clock.setTime(hour, minute, second);
    const DigitalClockFace after = clock.face(width(), height());
    // Only segments and texts that light up or go dark are drawn again.
    if (before.segments.size() != after.segments.size() ||
        before.texts.size() != after.texts.size()) {
        update();
        return;
    }
    QRegion changed;
    for (std::size_t i = 0; i < after.segments.size(); ++i) {
        if (before.segments[i].lit == after.segments[i].lit)
            continue;
        QPolygon outline;
        for (const PixelPoint& p : after.segments[i].points)
            outline << QPoint(p.x, p.y);
        changed += outline.boundingRect().adjusted(-1, -1, 1, 1);
    }
    for (std::size_t i = 0; i < after.texts.size(); ++i)
        if (before.texts[i].lit != after.texts[i].lit ||
            before.texts[i].text != after.texts[i].text)
            changed += toQRect(after.texts[i].rect);
    if (!changed.isEmpty())
        update(changed);
}

void CDigitalClock::setFlags(std::uint32_t flags) {
    clock.setFlags(flags);
    // Without the erase the owner's background shows through.
    setAttribute(Qt::WA_OpaquePaintEvent, clock.erasesBackground());
    update();
}

void CDigitalClock::setUse24Hour(bool use24Hour) {
    clock.setUse24Hour(use24Hour);
    update();
}

void CDigitalClock::renderTo(QImage& target) const {
    QPainter painter(&target);
    paintFace(painter);
}

void CDigitalClock::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    paintFace(painter, event->region().boundingRect());
}

void CDigitalClock::paintFace(QPainter& painter, const QRect& area) const {
    const QRect wanted = area.isNull() ? rect() : area;
    const DigitalClockColours& colours = clock.colours();
    if (clock.erasesBackground())
        painter.fillRect(wanted, toQColor(colours.backFill));

    const QBrush onBrush(toQColor(colours.fillOn));
    const QBrush offBrush(toQColor(colours.fillOff));
    const QPen onPen(toQColor(colours.borderOn), 1);
    const QPen offPen(toQColor(colours.borderOff), 1);

    const DigitalClockFace face = clock.face(width(), height());
    QPolygon polygon;
    for (const SegmentShape& segment : face.segments) {
        polygon.clear();
        for (const PixelPoint& p : segment.points)
            polygon << QPoint(p.x, p.y);
        // A quiet tick redraws one or two digits: the others are not touched.
        if (!polygon.boundingRect().adjusted(-1, -1, 1, 1).intersects(wanted))
            continue;
        painter.setBrush(segment.lit ? onBrush : offBrush);
        painter.setPen(segment.lit ? onPen : offPen);
        painter.drawPolygon(polygon);
    }
    painter.setBrush(onBrush);
    painter.setPen(onPen);
    for (const ColonDot& dot : face.dots)
        if (toQRect(dot.bounds()).adjusted(-1, -1, 1, 1).intersects(wanted))
            painter.drawEllipse(toQRect(dot.bounds()));

    if (face.texts.empty())
        return;
    painter.save();
    painter.setFont(amPmFont);
    painter.setBackgroundMode(Qt::OpaqueMode);
    painter.setBackground(toQColor(colours.backFill));
    for (const AmPmText& text : face.texts) {
        const QRect box = toQRect(text.rect);
        if (!box.intersects(wanted))
            continue;
        painter.setPen(toQColor(text.lit ? colours.fillOn : colours.fillOff));
        // The text is cut at its box, as a narrow handheld face would fit it.
        painter.setClipRect(box);
        painter.drawText(box, Qt::AlignLeft | Qt::AlignTop, QString::fromStdString(text.text));
    }
    painter.restore();
}

} // namespace zonara

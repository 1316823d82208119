#include "clocks/CSmallClock.h"

#include <algorithm>

#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>

#include "clocks/MultiClockLayout.h"
#include "controls/QImageSurface.h"

namespace zonara {

namespace {

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

QColor colourOf(ColorRef colour) {
    return QColor(toQRgb(colour));
}

QLineF toLine(const LineSegment& segment) {
    return QLineF(segment.from.x, segment.from.y, segment.to.x, segment.to.y);
}

// The sun's warm yellow, and the moon's pale grey with the crescent cut by the background.
const QColor sunColour(255, 200, 40);
const QColor moonColour(215, 222, 238);

} // namespace

CSmallClock::CSmallClock(QWidget* parent) : QWidget(parent) {
    // Every paint covers its whole area, so nothing under the clock is drawn first.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CSmallClock::setFace(const QImage& picture, int faceSize, int sizeValue) {
    face = picture;
    faceSide = faceSize;
    faceRadius = sizeValue;
    relayout();
}

void CSmallClock::releaseFace() {
    face = QImage();
    scaledFace = QImage();
    update();
}

void CSmallClock::setLayoutMode(int value) {
    if (value == mode)
        return;
    mode = value;
    relayout();
}

void CSmallClock::setFonts(const QFont& normal, const QFont& bold) {
    normalFont = normal;
    boldFont = bold;
    relayout();
}

void CSmallClock::setMark(Mark value) {
    if (value == marked)
        return;
    const QRegion before = markArea();
    marked = value;
    update(before + markArea());
}

void CSmallClock::setUse24Hour(bool value) {
    use24Hour = value;
}

void CSmallClock::setRules(const DstRuleList* value) {
    rules = value;
}

void CSmallClock::setCity(const ClockSlot& value, const std::optional<ClockSlot>& to) {
    city = value;
    reference = to;
}

int CSmallClock::lineHeight() const {
    return std::max(QFontMetrics(boldFont).height(), QFontMetrics(normalFont).height());
}

void CSmallClock::relayout() {
    laidOutFor = size();
    const int side = face.isNull() ? 0 : faceSide;
    placed = layoutSmallClock({0, 0, width(), height()}, side, faceRadius, mode, lineHeight());
    const QRect box = toQRect(placed.face);
    if (face.isNull() || box.isEmpty())
        scaledFace = QImage();
    else if (face.size() == box.size())
        scaledFace = face;
    else
        scaledFace = face.scaled(box.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    // The hands follow the new centre and radius on the next showTime; all is drawn anew.
    shown = false;
    update();
}

// A hidden widget hears of its new size only when it is shown, so the size is checked
// wherever the layout is used.
void CSmallClock::ensureLayout() {
    if (laidOutFor != size())
        relayout();
}

void CSmallClock::showTime(const SystemTime& utc) {
    ensureLayout();
    SmallClockState next = smallClockState(city, reference ? &*reference : nullptr, utc,
                                           rules ? *rules : noRules, use24Hour);
    const SmallClockHands nextHands = smallClockHands(placed.centre, placed.radius, next.local);
    changed = QRegion();
    if (!shown) {
        changed = rect();
    } else {
        const SmallClockTexts& was = current.texts;
        const SmallClockTexts& now = next.texts;
        if (was.name != now.name)
            changed += toQRect(placed.name);
        if (was.time != now.time)
            changed += toQRect(placed.time);
        if (was.date != now.date)
            changed += toQRect(placed.date);
        if (was.differenceLine() != now.differenceLine())
            changed += toQRect(placed.difference);
        if (was.sunUp != now.sunUp)
            changed += toQRect(placed.cue);
        if (!(shownHands == nextHands))
            changed += toQRect(placed.face);
    }
    current = std::move(next);
    shownHands = nextHands;
    shown = true;
    if (!changed.isEmpty())
        update(changed);
}

QRegion CSmallClock::markArea() const {
    const PixelRect frame = selectionFrame({0, 0, width(), height()});
    const QRect outer = toQRect(frame);
    return QRegion(outer) - QRegion(outer.adjusted(selectionFrameWidth, selectionFrameWidth,
                                                   -selectionFrameWidth, -selectionFrameWidth));
}

void CSmallClock::drawFace(QPainter& painter) const {
    const QRect box = toQRect(placed.face);
    if (!scaledFace.isNull())
        painter.drawImage(box.topLeft(), scaledFace);
    if (!shown || placed.radius <= 0)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(box);
    // Through the pixels' centres, so that a one-pixel hand covers whole pixels.
    painter.translate(0.5, 0.5);
    QPen pen(colourOf(smallClockHourHand), shownHands.hourWidth, Qt::SolidLine, Qt::RoundCap);
    painter.setPen(pen);
    painter.drawLine(toLine(shownHands.hour));
    pen.setColor(colourOf(smallClockMinuteHand));
    pen.setWidth(shownHands.minuteWidth);
    painter.setPen(pen);
    painter.drawLine(toLine(shownHands.minute));
    pen.setColor(colourOf(smallClockSecondHand));
    pen.setWidth(1);
    painter.setPen(pen);
    painter.drawLine(toLine(shownHands.second));
    const qreal hub = std::max(1.5, placed.radius / 12.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(smallClockSecondHand));
    painter.drawEllipse(QPointF(placed.centre.x, placed.centre.y), hub, hub);
    painter.restore();
}

void CSmallClock::drawCue(QPainter& painter) const {
    const QRectF box = toQRect(placed.cue);
    if (box.isEmpty() || !shown)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal radius = box.height() * 0.3;
    const QPointF centre = box.center();
    if (current.texts.sunUp) {
        painter.setBrush(sunColour);
        painter.drawEllipse(centre, radius, radius);
    } else {
        // A crescent: the moon's disc with a background disc laid over its right part.
        painter.setBrush(moonColour);
        painter.drawEllipse(centre, radius, radius);
        painter.setBrush(colourOf(smallClockBackground));
        painter.drawEllipse(centre + QPointF(radius * 0.55, -radius * 0.25), radius * 0.85,
                            radius * 0.85);
    }
    painter.restore();
}

void CSmallClock::drawTexts(QPainter& painter, const QRegion& area) const {
    if (!shown)
        return;
    struct Line {
        const PixelRect& box;
        const std::string& text;
        const QFont& font;
        ColorRef colour;
    };
    const std::string differenceLine = current.texts.differenceLine();
    const Line lines[] = {
        {placed.name, current.texts.name, boldFont, smallClockText},
        {placed.time, current.texts.time, boldFont, smallClockText},
        {placed.date, current.texts.date, normalFont, smallClockDimText},
        {placed.difference, differenceLine, normalFont, smallClockDifferenceText},
    };
    const Qt::Alignment align =
        (placed.centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
    for (const Line& line : lines) {
        const QRect box = toQRect(line.box);
        if (box.isEmpty() || !area.intersects(box))
            continue;
        painter.setFont(line.font);
        painter.setPen(colourOf(line.colour));
        // A name longer than its room ends in an ellipsis rather than being cut mid-letter.
        const QString text = painter.fontMetrics().elidedText(QString::fromStdString(line.text),
                                                              Qt::ElideRight, box.width());
        painter.drawText(box, int(align) | Qt::TextSingleLine, text);
    }
}

void CSmallClock::drawMark(QPainter& painter) const {
    if (marked == Mark::None)
        return;
    const QRect frame = toQRect(selectionFrame({0, 0, width(), height()}));
    painter.save();
    if (marked == Mark::Selected) {
        const int w = selectionFrameWidth;
        const QColor colour = colourOf(smallClockSelection);
        painter.fillRect(QRect(frame.left(), frame.top(), frame.width(), w), colour);
        painter.fillRect(QRect(frame.left(), frame.bottom() - w + 1, frame.width(), w), colour);
        painter.fillRect(QRect(frame.left(), frame.top(), w, frame.height()), colour);
        painter.fillRect(QRect(frame.right() - w + 1, frame.top(), w, frame.height()), colour);
    } else {
        painter.setPen(QPen(colourOf(smallClockDimText), 1, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(frame.adjusted(0, 0, -1, -1));
    }
    painter.restore();
}

void CSmallClock::paintEvent(QPaintEvent* event) {
    ensureLayout();
    QPainter painter(this);
    painter.setClipRegion(event->region());
    painter.fillRect(event->rect(), colourOf(smallClockBackground));
    if (event->region().intersects(toQRect(placed.face)))
        drawFace(painter);
    if (event->region().intersects(toQRect(placed.cue)))
        drawCue(painter);
    drawTexts(painter, event->region());
    drawMark(painter);
}

} // namespace zonara

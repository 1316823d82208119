#include "globe/CGlobe.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>

#include "clocks/CSmallClock.h"
#include "controls/DialogTheme.h"
#include "controls/QImageSurface.h"
#include "controls/SecondTick.h"
#include "globe/DayNight.h"
#include "globe/GlobeDrawing.h"

namespace zonara {

namespace {

QImage loadPicture(const Paths& paths, std::string_view name) {
    QImage picture(QString::fromStdString(paths.graphicsFile(name).string()));
    // The shading and the colour key work on plain 32-bit pixels.
    return picture.isNull() ? QImage() : picture.convertToFormat(QImage::Format_RGB32);
}

// 9 points at the screen's dots per inch, in the user-interface face.
QFont globeFont(int dpi, bool bold) {
    QFont font = themeFont(dpi, globeFontPoints, bold);
    font.setPixelSize(globeFontPixels(dpi));
    return font;
}

// The handheld's key codes, which the view's key table is written in.
int windowsKeyOf(int qtKey) {
    switch (qtKey) {
    case Qt::Key_Left:
        return KeyLeft;
    case Qt::Key_Up:
        return KeyUp;
    case Qt::Key_Right:
        return KeyRight;
    case Qt::Key_Down:
        return KeyDown;
    case Qt::Key_2:
        return KeyTwo;
    case Qt::Key_3:
        return KeyThree;
    default:
        return 0;
    }
}

} // namespace

CGlobe::CGlobe(const ViewSetup& viewSetup, QWidget* parent)
    : QWidget(parent), setup(viewSetup), globe(setup.profile.width, 0, 0),
      normalFont(globeFont(setup.profile.dpi, false)), boldFont(globeFont(setup.profile.dpi, true)),
      clockStrip(new CSmallClock(this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(setup.profile.width, setup.profile.height);
    setFocusPolicy(Qt::StrongFocus);
    globe.attach(record);
    clockStrip->setFonts(normalFont, boldFont);
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &CGlobe::tick);
    layOut();
}

CGlobe::~CGlobe() = default;

void CGlobe::Show() {
    const MapPair pair = mapPairFor(setup.profile);
    day = loadPicture(setup.paths, pair.dayFile);
    night = loadPicture(setup.paths, pair.nightFile);
    map = day.copy();
    marker = loadPicture(setup.paths, markerFile);
    const ClockFace face = stripClockFaceFor(setup.profile);
    clockFace = loadPicture(setup.paths, face.file);
    // The map's size is the day picture's as loaded: none when it is missing.
    globe.setMapSize(day.width(), day.height());
    globe.show(std::uint32_t(setup.clock.tickCount()));
    clockStrip->setFace(clockFace, face.size, face.sizeValue);
    layOut();
    mapChanged();
    showingPending = true;
    scheduleTick();
}

void CGlobe::Hide() {
    timer.stop();
    showingPending = false;
    day = QImage();
    map = QImage();
    night = QImage();
    marker = QImage();
    clockFace = QImage();
    clockStrip->releaseFace();
    canvasStale = true;
}

void CGlobe::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Show();
    // The frame gives the slots right after showing a view; a view shown without them
    // finishes with the ones it holds.
    QTimer::singleShot(0, this, [this] {
        if (showingPending)
            finishShowing();
    });
}

void CGlobe::hideEvent(QHideEvent* event) {
    Hide();
    QWidget::hideEvent(event);
}

void CGlobe::showSlots(const Settings& settings, const DstRuleList& list) {
    const int before = record.selectedSlot;
    record = settings;
    rules = &list;
    if (showingPending) {
        finishShowing();
        return;
    }
    bindSlot();
    Refresh(false);
    if (record.selectedSlot != before)
        CentreOnSelected();
    // A new city moves its marker.
    mapChanged();
}

void CGlobe::finishShowing() {
    showingPending = false;
    bindSlot();
    // The busy text shows while the map is being shaded.
    if (isVisible())
        repaint();
    Refresh(true);
    CentreOnSelected();
}

void CGlobe::bindSlot() {
    const ClockSlot* city = globe.selectedCity();
    clockStrip->setRules(rules);
    clockStrip->setUse24Hour(record.use24Hour != 0);
    if (city)
        clockStrip->setCity(*city, std::nullopt);
}

void CGlobe::Refresh(bool full) {
    const SystemTime now = setup.clock.utcNow();
    if (full) {
        map = day.copy();
        if (!map.isNull()) {
            QImageSurface surface(map);
            QImageSurface nightSurface(night);
            DrawDayNight(surface, nightSurface, now, true);
        }
        ++shadings;
        mapChanged();
    }
    clockStrip->showTime(now);
}

void CGlobe::CentreOnSelected() {
    globe.centreOnSelected();
    mapChanged();
}

void CGlobe::setScrollOffset(int offset) {
    globe.setScrollOffset(offset);
    mapChanged();
}

void CGlobe::tick() {
    Refresh(globe.tick(std::uint32_t(setup.clock.tickCount())) == RefreshKind::Full);
    scheduleTick();
}

void CGlobe::scheduleTick() {
    tickDelay = nextTickDelayMs(setup.clock);
    if (isVisible())
        timer.start(tickDelay);
}

void CGlobe::layOut() {
    const StripLayout strip =
        stripLayoutFor(width(), height(), 0, globe.mapHeight(), setup.profile.secondDisplay);
    clockStrip->setGeometry(strip.rect.left, strip.rect.top, strip.rect.width(),
                            strip.rect.height());
    clockStrip->setLayoutMode(strip.stripMode);
    stripMode = strip.layoutMode;
}

QRect CGlobe::mapArea() const {
    return QRect(0, 0, width(), globe.mapHeight()) & rect();
}

void CGlobe::mapChanged() {
    canvasStale = true;
    update(mapArea());
}

void CGlobe::composeCanvas() {
    if (canvas.size() != size())
        canvas = QImage(size(), QImage::Format_RGB32);
    canvas.fill(Qt::black);
    QImageSurface view(canvas);
    QImageSurface mapSurface(map);
    QImageSurface markerSurface(marker);
    drawGlobeView(view, mapSurface, markerSurface, globe);
    canvasStale = false;
}

void CGlobe::paintEvent(QPaintEvent* event) {
    if (canvasStale)
        composeCanvas();
    QPainter painter(this);
    painter.drawImage(event->rect(), canvas, event->rect());
    if (!globe.busy())
        return;
    globe.takeBusy();
    painter.setFont(boldFont);
    painter.setPen(QColor(toQRgb(busyTextColour)));
    // Centred on the map rather than the whole view, whose lower part the strip covers.
    const QRect area = mapArea().isEmpty() ? rect() : mapArea();
    painter.drawText(area, Qt::AlignCenter,
                     QString::fromLatin1(calculatingDayNightText.data(),
                                         qsizetype(calculatingDayNightText.size())));
    // Once the map is shaded the text goes with the next paint.
    if (!showingPending)
        QTimer::singleShot(0, this, [this] { update(mapArea()); });
}

void CGlobe::keyPressEvent(QKeyEvent* event) {
    const int code = windowsKeyOf(event->key());
    // The frame steps the selected slot for every view and gives the view the new slots,
    // which binds and centres it.
    if (code == KeyUp || code == KeyDown) {
        event->ignore();
        return;
    }
    switch (globe.key(code)) {
    case KeyOutcome::Scrolled:
    case KeyOutcome::SlotChanged:
        mapChanged();
        return;
    case KeyOutcome::PassedToParent:
        event->ignore();
        return;
    case KeyOutcome::Ignored:
        return;
    }
}

QImage CGlobe::renderImage() {
    if (canvasStale)
        composeCanvas();
    QImage image = canvas.copy();
    QPainter painter(&image);
    clockStrip->render(&painter, clockStrip->pos(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace zonara

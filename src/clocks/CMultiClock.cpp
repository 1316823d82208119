#include "clocks/CMultiClock.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "clocks/CSmallClock.h"
#include "controls/DialogTheme.h"
#include "controls/SecondTick.h"
#include "globe/GlobeModel.h"

namespace zonara {

namespace {

// The globe's font pair: 9 points at the screen's dots per inch.
QFont clockFont(int dpi, bool bold) {
    QFont font = themeFont(dpi, globeFontPoints, bold);
    font.setPixelSize(globeFontPixels(dpi));
    return font;
}

} // namespace

CMultiClock::CMultiClock(const ViewSetup& viewSetup, QWidget* parent)
    : QWidget(parent), setup(viewSetup) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(setup.profile.width, setup.profile.height);
    setFocusPolicy(Qt::StrongFocus);
    const QFont normal = clockFont(setup.profile.dpi, false);
    const QFont bold = clockFont(setup.profile.dpi, true);
    const int lineHeight = std::max(QFontMetrics(normal).height(), QFontMetrics(bold).height());
    page = layoutMultiClock(width(), height(), lineHeight);
    face = QImage(QString::fromStdString(setup.paths.graphicsFile(page.face.file).string()));
    for (std::size_t i = 0; i < clocks.size(); ++i) {
        auto* small = new CSmallClock(this);
        const PixelRect& cell = page.cells[i];
        small->setGeometry(cell.left, cell.top, cell.width(), cell.height());
        small->setFonts(normal, bold);
        small->setLayoutMode(page.mode);
        small->setFace(face, page.face.size, page.face.sizeValue);
        // Clicks go to the page, which knows the cells.
        small->setAttribute(Qt::WA_TransparentForMouseEvents);
        clocks[i] = small;
    }
    // Until the frame shows its slots the page shows the settings' defaults.
    applySettings();
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &CMultiClock::tick);
}

CMultiClock::~CMultiClock() = default;

void CMultiClock::showSlots(const Settings& settings, const DstRuleList& list) {
    // The cursor follows the selected slot when Up or Down moved it.
    if (settings.selectedSlot != shownSettings.selectedSlot)
        cursor = settings.selectedSlot;
    shownSettings = settings;
    rules = &list;
    applySettings();
}

void CMultiClock::applySettings() {
    const Settings& settings = shownSettings;
    const int selected =
        settings.selectedSlot >= 0 && settings.selectedSlot <= 3 ? settings.selectedSlot : 0;
    if (cursor < 0 || cursor > 3)
        cursor = selected;
    for (std::size_t i = 0; i < clocks.size(); ++i) {
        const bool own = int(i) == selected;
        clocks[i]->setRules(rules);
        clocks[i]->setUse24Hour(settings.use24Hour != 0);
        clocks[i]->setCity(settings.slots[i],
                           own ? std::nullopt
                               : std::optional<ClockSlot>(settings.slots[std::size_t(selected)]));
    }
    markClocks();
    refresh();
}

void CMultiClock::markClocks() {
    for (std::size_t i = 0; i < clocks.size(); ++i) {
        CSmallClock::Mark mark = CSmallClock::Mark::None;
        if (int(i) == shownSettings.selectedSlot)
            mark = CSmallClock::Mark::Selected;
        else if (int(i) == cursor)
            mark = CSmallClock::Mark::Cursor;
        clocks[i]->setMark(mark);
    }
}

void CMultiClock::refresh() {
    const SystemTime now = setup.clock.utcNow();
    for (CSmallClock* small : clocks)
        small->showTime(now);
}

void CMultiClock::tick() {
    refresh();
    scheduleTick();
}

void CMultiClock::scheduleTick() {
    tickDelay = nextTickDelayMs(setup.clock);
    if (isVisible())
        timer.start(tickDelay);
}

void CMultiClock::choose(int slot) {
    if (slot < 0 || slot > 3)
        return;
    cursor = slot;
    if (setup.selectSlot)
        setup.selectSlot(slot);
    markClocks();
}

void CMultiClock::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        cursor = cursor == 0 ? 3 : cursor - 1;
        markClocks();
        return;
    case Qt::Key_Right:
        cursor = cursor == 3 ? 0 : cursor + 1;
        markClocks();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        choose(cursor);
        return;
    default:
        // Up and Down, and the view keys, are the frame's.
        event->ignore();
    }
}

void CMultiClock::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int slot = multiClockSlotAt(page, {at.x(), at.y()});
    if (slot < 0) {
        event->ignore();
        return;
    }
    choose(slot);
}

void CMultiClock::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refresh();
    scheduleTick();
}

void CMultiClock::hideEvent(QHideEvent* event) {
    // A hidden page costs nothing.
    timer.stop();
    QWidget::hideEvent(event);
}

QImage CMultiClock::renderImage() {
    QImage image(size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace zonara

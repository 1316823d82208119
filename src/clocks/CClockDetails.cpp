#include "clocks/CClockDetails.h"

#include <cstdlib>

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>

#include "clocks/CAnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "clocks/FullClockTexts.h"
#include "clocks/SkinFiles.h"
#include "controls/QImageSurface.h"
#include "controls/SecondTick.h"

namespace zonara {

namespace {

QRect toQRect(const SkinRect& r) {
    return QRect(r.left, r.top, r.right - r.left, r.bottom - r.top);
}

QString picturePath(const Paths& paths, const std::string& name) {
    return QString::fromStdString(paths.graphicsFile(name).string());
}

Qt::Alignment alignmentOf(std::int32_t align) {
    switch (align) {
    case 1:
        return Qt::AlignHCenter;
    case 2:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

// The user-interface face; on the offscreen platform a fixed face, so that
// pictures drawn there come out the same on every machine.
QString userInterfaceFamily() {
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return QStringLiteral("DejaVu Sans");
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

const DstRuleList noRules;

} // namespace

CClockDetails::CClockDetails(const Paths& paths, const ClockSource& clock,
                             const DeviceProfile& profile, QWidget* parent)
    : QWidget(parent), paths(paths), clock(clock), profile(profile),
      fontFamily(userInterfaceFamily()) {
    // The canvas covers the whole view on every paint.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(profile.width, profile.height);
    background = QImage(size(), QImage::Format_RGB32);
    background.fill(Qt::black);
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &CClockDetails::tick);
    scheduleTick();
}

CClockDetails::~CClockDetails() = default;

void CClockDetails::applySkin(std::string_view skinName) {
    skin = std::string(skinName);
    CXMLParser parser;
    parser.Create();
    // A missing or broken file leaves an empty document: nothing matches.
    parser.Load(schemeFile(paths, skin, profile.width, profile.height));
    const SkinScheme next = readSkinScheme(parser, scheme);
    if (next.loadBackground)
        loadBackground(next.background);
    scheme = next;
    createClocks(parser);

    moonWanted = scheme.moonPhase.read;
    if (moonWanted && scheme.moonPhase.loadImage) {
        moonStrip = scheme.moonPhase.image.empty()
                        ? QImage()
                        : QImage(picturePath(paths, scheme.moonPhase.image));
    }
    parser.Close();

    repaintAll = true;
    Refresh();
}

void CClockDetails::loadBackground(const std::string& name) {
    background = QImage(size(), QImage::Format_RGB32);
    background.fill(Qt::black);
    const QImage picture = name.empty() ? QImage() : QImage(picturePath(paths, name));
    if (picture.isNull())
        return;
    QPainter painter(&background);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPoint(0, 0), picture);
}

void CClockDetails::createClocks(const CXMLParser& parser) {
    analogue.reset();
    digital.reset();
    SkinRect rect;
    auto face = std::make_unique<CAnalogueClock>(clock, this);
    if (face->engine().readScheme(parser, schemePrefix, rect)) {
        face->setGeometry(toQRect(rect));
        face->setBackground(background, QPoint(rect.left, rect.top));
        face->show();
        analogue = std::move(face);
    }
    rect = SkinRect{};
    auto segments = std::make_unique<CDigitalClock>(this);
    if (segments->engine().readScheme(parser, schemePrefix, rect)) {
        segments->setGeometry(toQRect(rect));
        segments->setUse24Hour(use24Hour);
        segments->show();
        digital = std::move(segments);
    }
}

void CClockDetails::setCity(const ClockSlot& value) {
    city = value;
    Refresh();
}

void CClockDetails::setUse24Hour(bool value) {
    if (value == use24Hour)
        return;
    use24Hour = value;
    if (digital)
        digital->setUse24Hour(use24Hour);
    // The AM/PM field appears or goes: the view is drawn afresh.
    repaintAll = true;
    Refresh();
}

void CClockDetails::setRules(const DstRuleList* value) {
    rules = value;
    Refresh();
}

void CClockDetails::setLocaleFormat(const LocaleFormat& value) {
    locale = &value;
    Refresh();
}

void CClockDetails::showSlots(const Settings& settings, const DstRuleList& list) {
    rules = &list;
    const std::size_t slot = std::size_t(
        settings.selectedSlot >= 0 && settings.selectedSlot <= 3 ? settings.selectedSlot : 0);
    city = settings.slots[slot];
    setUse24Hour(settings.use24Hour != 0);
    Refresh();
}

void CClockDetails::setFieldText(std::size_t slot, const std::string& text) {
    TextField& field = scheme.fields[slot];
    if (field.text == text)
        return;
    field.text = text;
    field.dirty = true;
    if (field.shown && !(slot == AmPmSlot && use24Hour))
        dirtyRegion += toQRect(field.rect);
}

void CClockDetails::Refresh() {
    const FullClockTexts result = fullClockTexts(city, clock.utcNow(), rules ? *rules : noRules,
                                                 use24Hour, stylesOf(scheme.fields), *locale);
    for (std::size_t slot = 0; slot < textFieldCount; ++slot)
        setFieldText(slot, result.texts[slot]);
    local = result.local;
    if (moonWanted) {
        const int next = fullClockMoonPhase(local);
        if (next != phase)
            dirtyRegion += QRect(scheme.moonPhase.rect.left, scheme.moonPhase.rect.top,
                                 scheme.moonPhase.size.width, scheme.moonPhase.size.height);
        phase = next;
    }
    setClockTimes();
    // Only what changed is drawn; a tick that changes nothing draws nothing.
    if (repaintAll)
        update();
    else if (!dirtyRegion.isEmpty())
        update(dirtyRegion);
    dirtyRegion = QRegion();
}

void CClockDetails::tick() {
    Refresh();
    scheduleTick();
}

void CClockDetails::scheduleTick() {
    tickDelay = nextTickDelayMs(clock);
    if (isVisible() || !testAttribute(Qt::WA_WState_ExplicitShowHide))
        timer.start(tickDelay);
}

void CClockDetails::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Refresh();
    scheduleTick();
}

void CClockDetails::hideEvent(QHideEvent* event) {
    // A hidden view costs nothing.
    timer.stop();
    QWidget::hideEvent(event);
}

void CClockDetails::setClockTimes() {
    if (analogue)
        analogue->setTime(local.hour >= 12 ? local.hour - 12 : local.hour, local.minute,
                          local.second);
    if (digital)
        digital->setTime(local.hour, local.minute, local.second);
}

QFont CClockDetails::fieldFont(const TextField& field) const {
    QFont font(fontFamily);
    // Points at the screen's dots per inch, truncated as the handheld did;
    // the size is the character height without the line's leading.
    const int pixels = std::abs(field.fontSize * profile.dpi / 72);
    if (pixels > 0)
        font.setPixelSize(pixels);
    font.setWeight(field.fontWeight >= 700 ? QFont::Bold : QFont::Medium);
    return font;
}

void CClockDetails::drawFields(QPainter& painter) {
    QFont font;
    bool fontSet = false;
    for (std::size_t slot = 0; slot < textFieldCount; ++slot) {
        TextField& field = scheme.fields[slot];
        // In 24-hour mode the AM/PM field is neither drawn nor erased.
        if (slot == AmPmSlot && use24Hour)
            continue;
        if (!field.shown || (!field.dirty && !repaintAll))
            continue;
        const QRect box = toQRect(field.rect);
        painter.setClipping(false);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(box.topLeft(), background, box);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);

        const QFont wanted = fieldFont(field);
        if (!fontSet || wanted != font) {
            font = wanted;
            painter.setFont(font);
            fontSet = true;
        }
        painter.setPen(QColor(toQRgb(field.colour)));
        // The text is cut at its box.
        painter.setClipRect(box);
        painter.drawText(box, alignmentOf(field.align) | Qt::TextSingleLine | Qt::AlignVCenter,
                         QString::fromStdString(field.text));
        field.dirty = false;
    }
    painter.setClipping(false);
}

void CClockDetails::drawMoonPhase(QPainter& painter) {
    const SkinSize cell = scheme.moonPhase.size;
    if (!moonWanted || moonStrip.isNull() || cell.width <= 0 || cell.height <= 0)
        return;
    // Only left and top of the rectangle place the picture.
    const QPoint at(scheme.moonPhase.rect.left, scheme.moonPhase.rect.top);
    const QRect source(phase * cell.width, 0, cell.width, cell.height);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(at, background, QRect(at, source.size()));
    // Transparent parts of the strip let the background through.
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(at, moonStrip, source);
}

void CClockDetails::drawCanvas() {
    if (canvas.size() != size()) {
        canvas = QImage(size(), QImage::Format_RGB32);
        repaintAll = true;
    }
    QPainter painter(&canvas);
    if (repaintAll) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(QPoint(0, 0), background);
    }
    drawFields(painter);
    drawMoonPhase(painter);
    repaintAll = false;
}

void CClockDetails::paintEvent(QPaintEvent* event) {
    drawCanvas();
    QPainter painter(this);
    painter.drawImage(event->rect(), canvas, event->rect());
}

void CClockDetails::resizeEvent(QResizeEvent* event) {
    repaintAll = true;
    QWidget::resizeEvent(event);
}

QImage CClockDetails::renderImage() {
    QImage image(size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace zonara

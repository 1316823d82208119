#pragma once
// The full clock view: one city on a skinned background with its fields, clocks and moon phase.

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include <QFont>
#include <QImage>
#include <QRegion>
#include <QTimer>
#include <QWidget>

class QPainter;

#include "clocks/SkinScheme.h"
#include "controls/ClockView.h"
#include "core/ClockSlot.h"
#include "core/ClockSource.h"
#include "core/DeviceProfile.h"
#include "core/DstRule.h"
#include "core/LocaleFormat.h"
#include "core/Paths.h"
#include "core/ZoneTime.h"

namespace zonara {

class CAnalogueClock;
class CDigitalClock;
class CXMLParser;

class CClockDetails : public QWidget, public ClockView {
    Q_OBJECT
  public:
    // The view takes the profile's size and starts ticking on the clock
    // source's whole seconds.
    CClockDetails(const Paths& paths, const ClockSource& clock, const DeviceProfile& profile,
                  QWidget* parent = nullptr);
    ~CClockDetails() override;

    // Reads Graphics/NAME_WxH.xml for the profile's size: background, the 13
    // fields, the analogue clock, the digital clock, the moon phase. What the
    // scheme or its pictures lack is simply not drawn.
    void applySkin(std::string_view skinName);
    void setCity(const ClockSlot& city);
    void setUse24Hour(bool use24Hour);
    // The owner keeps the list alive while the view uses it; nothing means no
    // rules, so every city shows no daylight saving.
    void setRules(const DstRuleList* rules);
    // The owner keeps the locale alive; the fixed English one by default.
    void setLocaleFormat(const LocaleFormat& locale);
    // Recomputes the texts, sets both clocks and repaints what changed.
    void Refresh();

    // The frame's view interface: the selected slot's city, the 24-hour
    // choice and the rules.
    QWidget* widget() override { return this; }
    void showSlots(const Settings& settings, const DstRuleList& rules) override;
    void refresh() override { Refresh(); }
    void takeFocus() override { setFocus(); }

    // One tick: refresh, then schedule the next one just past the next whole
    // second of the clock source.
    void tick();
    // Milliseconds from now to the next tick, as tick() last scheduled it.
    int nextTickDelay() const { return tickDelay; }

    // The whole view with its clocks, drawn off-screen as the window shows it.
    QImage renderImage();

    const std::string& skinName() const { return skin; }
    const std::array<TextField, textFieldCount>& fields() const { return scheme.fields; }
    const MoonPhaseLayout& moonPhaseLayout() const { return scheme.moonPhase; }
    const ZoneTime& localTime() const { return local; }
    // -1 while the skin shows no moon phase.
    int moonPhase() const { return moonWanted ? phase : -1; }
    CAnalogueClock* analogueClock() const { return analogue.get(); }
    CDigitalClock* digitalClock() const { return digital.get(); }
    const QImage& backgroundImage() const { return background; }
    // Fires tick() on each whole second while the view is shown.
    const QTimer& refreshTimer() const { return timer; }
    // The font a field is drawn in: its points at the profile's dots per inch.
    QFont fieldFont(const TextField& field) const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void loadBackground(const std::string& name);
    void createClocks(const CXMLParser& parser);
    void setFieldText(std::size_t slot, const std::string& text);
    void setClockTimes();
    void scheduleTick();
    void drawCanvas();
    void drawFields(QPainter& painter);
    void drawMoonPhase(QPainter& painter);

    Paths paths;
    ClockSource clock;
    DeviceProfile profile;
    const DstRuleList* rules = nullptr;
    const LocaleFormat* locale = &englishLocale();
    ClockSlot city;
    bool use24Hour = false;

    std::string skin;
    SkinScheme scheme;
    // The skin's picture over black, of the view's size: what the fields and
    // the analogue clock erase from.
    QImage background;
    // The view as last drawn; a paint draws only what changed into it.
    QImage canvas;
    bool repaintAll = true;

    QImage moonStrip;
    bool moonWanted = false;
    int phase = 0;

    ZoneTime local;
    std::unique_ptr<CAnalogueClock> analogue;
    std::unique_ptr<CDigitalClock> digital;
    QTimer timer;
    int tickDelay = 1000;
    QRegion dirtyRegion;
    QString fontFamily;
};

} // namespace zonara

#pragma once
// The multi-clock page: the four slots as four small clocks, the selected one marked.

#include <array>

#include <QFont>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include "clocks/MultiClockLayout.h"
#include "controls/ClockView.h"
#include "core/Settings.h"

namespace zonara {

class CSmallClock;

class CMultiClock : public QWidget, public ClockView {
    Q_OBJECT
  public:
    // The page takes the profile's size; it ticks on the clock source's whole seconds while
    // it is shown.
    CMultiClock(const ViewSetup& setup, QWidget* parent = nullptr);
    ~CMultiClock() override;

    QWidget* widget() override { return this; }
    // Each clock shows its slot's city and its difference to the selected slot's city.
    void showSlots(const Settings& settings, const DstRuleList& rules) override;
    void refresh() override;
    void takeFocus() override { setFocus(); }

    // One tick: every clock at the clock source's time, then the next tick scheduled.
    void tick();
    const QTimer& refreshTimer() const { return timer; }
    int nextTickDelay() const { return tickDelay; }

    const MultiClockLayout& pageLayout() const { return page; }
    CSmallClock* clock(int slot) const { return clocks[std::size_t(slot)]; }
    // The clock Enter would make the selected one; Left and Right move it.
    int cursorSlot() const { return cursor; }

    // The page as the window shows it, drawn off-screen.
    QImage renderImage();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void applySettings();
    void choose(int slot);
    void markClocks();
    void scheduleTick();

    ViewSetup setup;
    Settings shownSettings;
    const DstRuleList* rules = nullptr;
    MultiClockLayout page;
    QImage face;
    std::array<CSmallClock*, 4> clocks{}; // children, owned by the page
    int cursor = 0;
    QTimer timer;
    int tickDelay = 1000;
};

} // namespace zonara

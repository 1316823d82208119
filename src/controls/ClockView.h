#pragma once
// What the main frame asks of each of its views, and what it gives them.

#include <functional>

#include "core/ClockSource.h"
#include "core/DeviceProfile.h"
#include "core/DstRule.h"
#include "core/Paths.h"
#include "core/Settings.h"

class QWidget;

namespace zonara {

// Everything a view is made with. The frame outlives its views.
struct ViewSetup {
    Paths paths;
    ClockSource clock;
    DeviceProfile profile;
    // A view that lets the user pick a slot (a click on a small clock) asks
    // the frame to select it.
    std::function<void(int slot)> selectSlot;
};

class ClockView {
  public:
    virtual ~ClockView() = default;

    virtual QWidget* widget() = 0;
    // The four slots, the selected one and the 24-hour choice; the rules stay
    // alive while the view shows them.
    virtual void showSlots(const Settings& settings, const DstRuleList& rules) = 0;
    // Recomputes what the view shows now and repaints what changed.
    virtual void refresh() = 0;
    virtual void takeFocus() = 0;
};

} // namespace zonara

#pragma once
// The weather window for the selected slot's city, run from the frame's Weather menu.

#include "app/frame/FrameContext.h"

namespace zonara {

// Shows the stored report; with updateFirst the update starts as the window
// opens. The settings change when the units were switched or a new report
// was stored (then the stored report's location is the slot's city).
FrameResult runWeatherWindow(FrameContext& ctx, bool updateFirst);

} // namespace zonara

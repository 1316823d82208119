// Weather "Show Last": the weather window with the stored report.

#include "app/frame/FrameHandlers.h"
#include "app/frame/WeatherWindow.h"

namespace zonara {

FrameResult weatherShowLastCommand(FrameContext& ctx) {
    return runWeatherWindow(ctx, false);
}

} // namespace zonara

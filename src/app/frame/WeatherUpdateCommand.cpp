// Weather "Update": the weather window, fetching a new report as it opens.

#include "app/frame/FrameHandlers.h"
#include "app/frame/WeatherWindow.h"

namespace zonara {

FrameResult weatherUpdateCommand(FrameContext& ctx) {
    return runWeatherWindow(ctx, true);
}

} // namespace zonara

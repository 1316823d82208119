#pragma once
// The frame's command handlers, one file each.

#include "app/frame/FrameContext.h"

namespace zonara {

FrameResult selectCityCommand(FrameContext& ctx);
FrameResult showViewCommand(FrameContext& ctx);
FrameResult cityDetailsCommand(FrameContext& ctx);
FrameResult weatherUpdateCommand(FrameContext& ctx);
FrameResult weatherShowLastCommand(FrameContext& ctx);
FrameResult currencyCommand(FrameContext& ctx);
FrameResult metricCommand(FrameContext& ctx);
FrameResult stopWatchCommand(FrameContext& ctx);
FrameResult skinCommand(FrameContext& ctx);
FrameResult updateDataCommand(FrameContext& ctx);
FrameResult twentyFourHourCommand(FrameContext& ctx);
FrameResult helpCommand(FrameContext& ctx);
FrameResult aboutCommand(FrameContext& ctx);
FrameResult exitCommand(FrameContext& ctx);

} // namespace zonara

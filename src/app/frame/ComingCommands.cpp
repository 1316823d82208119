// Commands whose dialogs are not built yet: they say so instead of doing nothing.

#include <QObject>

#include "app/frame/FrameCommands.h"
#include "app/frame/FrameHandlers.h"

namespace zonara {

namespace {

FrameResult notYet(FrameContext& ctx) {
    const FrameCommand* command = findFrameCommand(ctx.command);
    const QString feature =
        command != nullptr ? QObject::tr(std::string(command->text).c_str()) : QString();
    ctx.services.tellUser(
        feature, QObject::tr("%1 is not available yet; it comes in a later version of Zonara.")
                     .arg(feature));
    return {};
}

} // namespace

FrameResult cityDetailsCommand(FrameContext& ctx) {
    return notYet(ctx);
}
FrameResult weatherUpdateCommand(FrameContext& ctx) {
    return notYet(ctx);
}
FrameResult weatherShowLastCommand(FrameContext& ctx) {
    return notYet(ctx);
}
FrameResult currencyCommand(FrameContext& ctx) {
    return notYet(ctx);
}
FrameResult metricCommand(FrameContext& ctx) {
    return notYet(ctx);
}
FrameResult stopWatchCommand(FrameContext& ctx) {
    return notYet(ctx);
}

} // namespace zonara

// "Help": the help page in the user's language, else the English one.

#include <QLocale>
#include <QObject>

#include "app/HelpPage.h"
#include "app/frame/FrameHandlers.h"

namespace zonara {

FrameResult helpCommand(FrameContext& ctx) {
    const std::uint16_t language = languageIdFromLocale(QLocale::system().name().toStdString());
    const std::filesystem::path page = helpPage(ctx.paths.root(), language);
    if (!ctx.services.openPage(page))
        ctx.services.tellUser(QObject::tr("Help"),
                              QObject::tr("The help page %1 could not be opened.")
                                  .arg(QString::fromStdString(page.string())));
    return {};
}

} // namespace zonara

#include "app/OffscreenApp.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <unistd.h>

namespace zonara {

OffscreenApp::OffscreenApp() {
    if (QCoreApplication::instance() != nullptr)
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Without a session, Qt picks a private runtime folder itself but warns on
    // stderr; name that folder so a command's output stays clean.
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        const QString runtime =
            QDir::tempPath() + QStringLiteral("/runtime-") + QString::number(::getuid());
        QDir().mkpath(runtime);
        QFile::setPermissions(runtime, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                           QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", runtime.toLocal8Bit());
    }
    app = std::make_unique<QApplication>(argc, argv);
}

OffscreenApp::~OffscreenApp() = default;

bool OffscreenApp::usable() const {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace zonara

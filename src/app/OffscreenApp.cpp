#include "app/OffscreenApp.h"

#include <QApplication>

namespace zonara {

OffscreenApp::OffscreenApp() {
    if (QCoreApplication::instance() != nullptr)
        return;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    app = std::make_unique<QApplication>(argc, argv);
}

OffscreenApp::~OffscreenApp() = default;

bool OffscreenApp::usable() const {
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace zonara

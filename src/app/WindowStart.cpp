#include "app/WindowStart.h"

#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "app/SingleInstance.h"
#include "app/frame/CMainFrame.h"
#include "core/DeviceProfile.h"
#include "core/RootFolder.h"

namespace zonara {

namespace {

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

} // namespace

bool hasDisplay() {
    return isSet("QT_QPA_PLATFORM") || isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

int runWindow(const GlobalOptions& options, int argc, char** argv) {
    const auto profile =
        deviceProfile(options.screenWidth, options.screenHeight, options.secondDisplay);
    if (!profile) {
        std::cerr << "zonara: no device profile of " << options.screenWidth << "x"
                  << options.screenHeight
                  << "; use 176x220, 240x320, 480x640 or their landscape forms\n";
        return 1;
    }
    const RootChoice root = resolveRoot(options.root, executableDir());
    if (!root.error.empty()) {
        std::cerr << "zonara: " << root.error << "\n";
        return 1;
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zonara"));
    SingleInstance instance(QStringLiteral("Zonara"));
    if (instance.claim() == SingleInstance::Outcome::OtherInstanceRaised) {
        return 0;
    }
    const ClockSource clock =
        options.at ? ClockSource::fixedAt(*options.at) : ClockSource::system();
    const Paths paths(root.root);
    CMainFrame frame(paths, clock, *profile, loadConfig(paths, std::cerr, "zonara: "));
    instance.onRaiseRequest([&frame] {
        frame.showNormal();
        frame.raise();
        frame.activateWindow();
    });
    frame.show();
    return QApplication::exec();
}

} // namespace zonara

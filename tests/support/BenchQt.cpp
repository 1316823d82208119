#include "support/BenchQt.h"

#include <QApplication>

namespace zonara::test {

void ensureQtApplication() {
    static int argc = 1;
    static char name[] = "zonara_bench";
    static char* argv[] = {name, nullptr};
    if (QCoreApplication::instance() != nullptr) {
        return;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    static QApplication app(argc, argv);
}

} // namespace zonara::test

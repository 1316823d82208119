#include "app/CBusyWindow.h"

#include <QApplication>
#include <QLabel>

namespace zonara {

CBusyWindow::CBusyWindow(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("busyWindow"));
    setAutoFillBackground(true);
    setGeometry(parent->rect());
    auto* changed = new QLabel(tr("Data Changed"), this);
    auto* preparing = new QLabel(tr("Preparing data"), this);
    changed->setAlignment(Qt::AlignCenter);
    preparing->setAlignment(Qt::AlignCenter);
    changed->setGeometry(0, 20, width(), 30);   // rows 20 to 50
    preparing->setGeometry(0, 50, width(), 30); // rows 50 to 80
    raise();
    show();
    repaint();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace zonara

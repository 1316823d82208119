#include "controls/CDialogFrame.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/CommandIds.h"
#include "controls/DialogTheme.h"
#include "controls/SoftKeyBar.h"

namespace zonara {

namespace {

constexpr int blinkMilliseconds = 500;

QPixmap dot(int size, const QColor& colour) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(1.5, 1.5, size - 3.0, size - 3.0));
    return picture;
}

} // namespace

CDialogFrame::CDialogFrame(const DeviceProfile& profile, const QString& title, QWidget* parent)
    : QDialog(parent), screen(profile), body(new QWidget(this)), statusIcon(new QLabel(this)),
      statusLine(new QLabel(this)), bar(new SoftKeyBar(QString(), this)) {
    setWindowTitle(title);
    setModal(true);
    setObjectName(QStringLiteral("dialogFrame"));
    setFont(themeFont(profile.dpi));
    setStyleSheet(dialogStyleSheet(profile.dpi));
    bar->setDpi(profile.dpi);
    // The bar keeps the height it has with its keys when they are hidden, so
    // the content keeps the profile's height.
    const int barHeight = bar->sizeHint().height();
    bar->setMinimumHeight(barHeight);
    bar->leftButton()->hide();
    // A dialog without menu commands shows no "Menu" key.
    bar->menuButton()->hide();
    connect(bar->leftButton(), &QPushButton::clicked, this, [this] { runCommand(leftCommand); });

    const int icon = 14 * std::max(profile.dpi, 96) / 96;
    setBusyIcons(dot(icon, dialogTheme().accent), dot(icon, dialogTheme().field));
    statusIcon->setFixedSize(icon, icon);
    statusIcon->hide();
    statusLine->setObjectName(QStringLiteral("status"));
    statusLine->setProperty("role", QStringLiteral("status"));
    statusLine->setWordWrap(true);
    blink.setInterval(blinkMilliseconds);
    connect(&blink, &QTimer::timeout, this, [this] { showIcon(!iconLit); });

    const int margin = std::max(3, 6 * profile.dpi / 96 / 2);
    auto* statusRow = new QHBoxLayout;
    statusRow->setContentsMargins(margin, 0, margin, margin / 2);
    statusRow->addWidget(statusIcon);
    statusRow->addWidget(statusLine, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(body, 1);
    layout->addLayout(statusRow);
    layout->addWidget(bar);

    if (parent != nullptr) {
        setGeometry(parent->window()->geometry());
    } else {
        resize(profile.width, profile.height + barHeight);
    }
}

void CDialogFrame::setLeftKey(const QString& text, int commandId) {
    leftCommand = commandId;
    bar->leftButton()->setText(text);
    bar->leftButton()->setVisible(!text.isEmpty());
    // Enter presses the left soft key.
    bar->leftButton()->setDefault(!text.isEmpty());
}

QAction* CDialogFrame::addMenuCommand(const QString& text, int commandId) {
    bar->menuButton()->show();
    QAction* item = bar->menu()->addAction(text);
    item->setData(commandId);
    connect(item, &QAction::triggered, this, [this, commandId] { runCommand(commandId); });
    return item;
}

void CDialogFrame::addMenuSeparator() {
    bar->menu()->addSeparator();
}

QAction* CDialogFrame::menuCommand(int commandId) const {
    for (QAction* item : bar->menu()->actions())
        if (!item->isSeparator() && item->data().toInt() == commandId)
            return item;
    return nullptr;
}

void CDialogFrame::setStatus(const QString& text) {
    statusLine->setText(text);
}

QString CDialogFrame::status() const {
    return statusLine->text();
}

void CDialogFrame::setBusy(bool value) {
    busy = value;
    statusIcon->setVisible(busy);
    if (busy) {
        showIcon(true);
        blink.start();
    } else {
        blink.stop();
    }
}

void CDialogFrame::setBusyIcons(const QPixmap& on, const QPixmap& off) {
    iconOn = on;
    iconOff = off;
    showIcon(iconLit);
}

void CDialogFrame::showIcon(bool lit) {
    iconLit = lit;
    statusIcon->setPixmap(lit ? iconOn : iconOff);
}

void CDialogFrame::runCommand(int commandId) {
    onCommand(commandId);
}

void CDialogFrame::onCommand(int commandId) {
    if (commandId == cmd::Done)
        QDialog::accept();
    else if (commandId == cmd::Cancel || commandId == cmd::PlatformCancel)
        QDialog::reject();
}

void CDialogFrame::reject() {
    // Escape and the window manager's close come in as the platform's cancel,
    // so a dialog that must do something first sees them.
    runCommand(cmd::PlatformCancel);
}

void CDialogFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintDialogBackground(painter, rect());
}

} // namespace zonara

#include "app/frame/CMainFrame.h"

#include <QAction>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include "app/CBusyWindow.h"
#include "app/frame/FrameCommands.h"
#include "app/frame/FrameMenu.h"
#include "app/frame/FrameViews.h"
#include "cities/SlotLookup.h"
#include "clocks/CClockDetails.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"
#include "core/WorldFiles.h"

namespace zonara {

CMainFrame::CMainFrame(const Paths& paths, const ClockSource& clock, const DeviceProfile& profile,
                       Config config, QWidget* parent)
    : QWidget(parent), paths(paths), clock(clock), profile(profile), config(std::move(config)),
      catalog(paths), stack(new QStackedWidget(this)),
      bar(new SoftKeyBar(tr("Select City"), this)) {
    setWindowTitle(QStringLiteral("Zonara"));
    setObjectName(QStringLiteral("Zonara"));
    services.runDialog = [](QDialog& dialog) { return dialog.exec(); };
    services.tellUser = [this](const QString& title, const QString& text) {
        QMessageBox::information(this, title, text);
    };
    services.openPage = [](const std::filesystem::path& page) {
        return QDesktopServices::openUrl(
            QUrl::fromLocalFile(QString::fromStdString(page.string())));
    };

    // The views get the profile's whole size; the soft-key bar sits below them.
    stack->setFixedSize(profile.width, profile.height);
    const ViewSetup setup{paths, clock, profile, [this](int slot) {
                              current.selectedSlot = slot;
                              refreshViews();
                          }};
    for (const FrameView& row : frameViews()) {
        ClockView* made = row.create(setup, stack);
        views.push_back(made);
        stack->addWidget(made->widget());
    }
    bar->setDpi(profile.dpi);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(stack);
    layout->addWidget(bar);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(bar->leftButton(), &QPushButton::clicked, this, [this] { onCommand(cmd::SelectCity); });
    buildFrameMenu(bar->menu(), [this](int id) { onCommand(id); });
    setFocusPolicy(Qt::StrongFocus);
    QTimer::singleShot(0, this, &CMainFrame::deferredStart);
}

CMainFrame::~CMainFrame() = default;

CClockDetails* CMainFrame::fullClock() const {
    return static_cast<CClockDetails*>(views.at(fullClockView));
}

QMenu* CMainFrame::menu() const {
    return bar->menu();
}

QAction* CMainFrame::action(int commandId) const {
    return findMenuAction(bar->menu(), commandId);
}

void CMainFrame::deferredStart() {
    if (started)
        return;
    started = true;
    current.Load(paths.dataFile(settingsFileName));
    fullClock()->applySkin(toUtf8(current.skinFile));
    if (dataFilesChanged(paths)) {
        CBusyWindow busy(this);
        CountryList list;
        rebuildDataFiles(paths, list);
    }
    loadDstRules(paths, rules);
    showView(current.currentView <= multiClockView ? current.currentView : fullClockView);
}

void CMainFrame::onCommand(int id) {
    const FrameCommand* command = findFrameCommand(id);
    if (command == nullptr || command->handler == nullptr)
        return;
    FrameContext ctx{paths, clock, profile, current, rules, catalog, services, this, id, config};
    apply(command->handler(ctx));
}

void CMainFrame::apply(const FrameResult& result) {
    switch (result.outcome) {
    case FrameOutcome::Nothing:
        return;
    case FrameOutcome::ShowView:
        showView(result.view);
        return;
    case FrameOutcome::Exit:
        QTimer::singleShot(0, this, &QWidget::close);
        return;
    case FrameOutcome::DataChanged:
        reloadWorld();
        break;
    case FrameOutcome::SkinChanged:
        skinPending = true;
        if (viewShown == fullClockView) {
            fullClock()->applySkin(toUtf8(current.skinFile));
            skinPending = false;
        }
        break;
    case FrameOutcome::Refresh:
    case FrameOutcome::SettingsChanged:
        break;
    }
    if (result.outcome != FrameOutcome::Refresh)
        current.Save(paths.dataFile(settingsFileName));
    refreshViews();
}

// After new world files were installed: rebuild under the busy window when
// the files differ from their recorded times, forget what was read, look the
// four slots up again by country and city name, and read the rules again.
void CMainFrame::reloadWorld() {
    if (dataFilesChanged(paths)) {
        CBusyWindow busy(this);
        CountryList list;
        rebuildDataFiles(paths, list);
    }
    catalog.reload();
    lookUpSlotsAgain(catalog, current.slots);
    loadDstRules(paths, rules);
}

void CMainFrame::showView(int number) {
    viewShown = number;
    if (number == fullClockView && skinPending) {
        fullClock()->applySkin(toUtf8(current.skinFile));
        skinPending = false;
    }
    stack->setCurrentIndex(number);
    refreshViews();
    if (number != fullClockView)
        views[std::size_t(number)]->takeFocus();
}

void CMainFrame::refreshViews() {
    if (QAction* mark = action(cmd::UseTwentyFourHour))
        mark->setChecked(current.use24Hour != 0);
    // Only the view shown works; the others catch up when they are shown.
    views[std::size_t(viewShown)]->showSlots(current, rules);
}

void CMainFrame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        current.selectedSlot = stepSlot(current.selectedSlot, event->key() == Qt::Key_Up);
        refreshViews();
        return;
    }
    const QString text = event->text();
    if (text.size() == 1) {
        if (const FrameView* view = viewByKey(char(text.at(0).toLatin1()))) {
            showView(view->view);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    current.currentView = std::uint8_t(viewShown);
    current.Save(paths.dataFile(settingsFileName));
    event->accept();
}

} // namespace zonara

#include "app/CMainFrame.h"

#include <QAction>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include "app/AboutDialog.h"
#include "app/CBusyWindow.h"
#include "app/FrameCommands.h"
#include "app/HelpPage.h"
#include "app/PlaceholderView.h"
#include "cities/CCitySelection.h"
#include "clocks/CClockDetails.h"
#include "clocks/CSkinSetup.h"
#include "controls/SoftKeyBar.h"
#include "core/Text.h"
#include "core/WorldFiles.h"

namespace zonara {

namespace {

QString commandText(int id) {
    const FrameCommand* command = findFrameCommand(id);
    return command != nullptr
               ? QString::fromUtf8(command->text.data(), qsizetype(command->text.size()))
               : QString();
}

} // namespace

CMainFrame::CMainFrame(const Paths& paths, const ClockSource& clock, const DeviceProfile& profile,
                       QWidget* parent)
    : QWidget(parent), paths(paths), clock(clock), profile(profile), catalog(paths),
      views(new QStackedWidget(this)), clockView(new CClockDetails(paths, this->clock, profile)),
      bar(new SoftKeyBar(tr("Select City"), this)) {
    setWindowTitle(QStringLiteral("Zonara"));
    setObjectName(QStringLiteral("Zonara"));
    runDialog = [](QDialog& dialog) { return dialog.exec(); };
    tellUser = [this](const QString& title, const QString& text) {
        QMessageBox::information(this, title, text);
    };
    openPage = [](const std::filesystem::path& page) {
        return QDesktopServices::openUrl(
            QUrl::fromLocalFile(QString::fromStdString(page.string())));
    };

    // The views get the profile's whole size; the soft-key bar sits below them.
    views->setFixedSize(profile.width, profile.height);
    views->addWidget(clockView);
    views->addWidget(new PlaceholderView(commandText(32774)));
    views->addWidget(new PlaceholderView(commandText(32776)));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(views);
    layout->addWidget(bar);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(bar->leftButton(), &QPushButton::clicked, this, [this] { onCommand(32772); });
    buildMenu();
    setFocusPolicy(Qt::StrongFocus);
    QTimer::singleShot(0, this, &CMainFrame::deferredStart);
}

CMainFrame::~CMainFrame() = default;

void CMainFrame::buildMenu() {
    QMenu* top = bar->menu();
    auto add = [this](QMenu* menu, int id) {
        QAction* item = menu->addAction(commandText(id));
        item->setData(id);
        connect(item, &QAction::triggered, this, [this, id] { onCommand(id); });
        return item;
    };
    QMenu* view = top->addMenu(tr("View"));
    add(view, 32774);
    add(view, 32775);
    add(view, 32776);
    add(top, 32777);
    QMenu* weather = top->addMenu(tr("Weather"));
    add(weather, 32819);
    add(weather, 32820);
    add(top, 32779);
    add(top, 32783);
    add(top, 32780);
    QMenu* setup = top->addMenu(tr("Setup"));
    QAction* skin = add(setup, 32790);
    add(setup, 32791);
    add(setup, 32792)->setCheckable(true);
    top->addSeparator();
    add(top, 32793);
    add(top, 32794);
    add(top, 32795);
    // The skin setup is never offered in the menu, although its command stays
    // in the table and still works when it reaches the frame.
    setup->removeAction(skin);
    skin->deleteLater();
}

QMenu* CMainFrame::menu() const {
    return bar->menu();
}

QAction* CMainFrame::action(int commandId) const {
    const std::function<QAction*(const QMenu*)> find = [&](const QMenu* menu) -> QAction* {
        for (QAction* item : menu->actions()) {
            if (item->menu() != nullptr) {
                if (QAction* inner = find(item->menu())) {
                    return inner;
                }
            } else if (item->data().toInt() == commandId && !item->isSeparator()) {
                return item;
            }
        }
        return nullptr;
    };
    return find(bar->menu());
}

void CMainFrame::deferredStart() {
    if (started) {
        return;
    }
    started = true;
    current.Load(paths.dataFile(settingsFileName));
    clockView->applySkin(toUtf8(current.skinFile));
    showView(current.currentView <= multiClockView ? current.currentView : fullClockView);
    if (QAction* mark = action(32792)) {
        mark->setChecked(current.use24Hour != 0);
    }
    if (dataFilesChanged(paths)) {
        rebuildUnderBusyWindow();
    }
    loadDstRules(paths, rules);
    clockView->setRules(&rules);
    refreshViews();
}

void CMainFrame::rebuildUnderBusyWindow() {
    CBusyWindow busy(this);
    CountryList list;
    rebuildDataFiles(paths, list);
    catalog.reload();
}

void CMainFrame::showView(int view) {
    viewShown = view;
    views->setCurrentIndex(view);
    if (view == fullClockView) {
        refreshViews();
    }
}

void CMainFrame::refreshViews() {
    const std::int32_t slot =
        current.selectedSlot >= 0 && current.selectedSlot <= 3 ? current.selectedSlot : 0;
    clockView->setUse24Hour(current.use24Hour != 0);
    clockView->setCity(current.slots[std::size_t(slot)]);
    clockView->Refresh();
    update();
}

void CMainFrame::onCommand(int id) {
    const FrameCommand* command = findFrameCommand(id);
    if (command == nullptr) {
        return;
    }
    switch (command->action) {
    case FrameAction::SelectCity:
        selectCity();
        break;
    case FrameAction::ShowView:
        showView(command->view);
        break;
    case FrameAction::FullClockSkin:
        chooseSkin();
        break;
    case FrameAction::Toggle24Hour:
        toggle24Hour();
        break;
    case FrameAction::Help:
        showHelp();
        break;
    case FrameAction::About:
        showAbout();
        break;
    case FrameAction::Exit:
        QTimer::singleShot(0, this, &QWidget::close);
        break;
    case FrameAction::CityDetails:
    case FrameAction::CurrencyConversion:
    case FrameAction::Metric:
    case FrameAction::StopWatch:
    case FrameAction::UpdateData:
        notYet(commandText(id));
        break;
    case FrameAction::WeatherUpdate:
    case FrameAction::WeatherShowLast:
        notYet(tr("Weather"));
        break;
    case FrameAction::Nothing:
        break;
    }
}

void CMainFrame::selectCity() {
    const std::size_t slot = std::size_t(
        current.selectedSlot >= 0 && current.selectedSlot <= 3 ? current.selectedSlot : 0);
    CCitySelection dialog(catalog, int(slot), current.slots[slot], this);
    if (runDialog(dialog) != QDialog::Accepted || !dialog.chosen()) {
        return;
    }
    current.slots[slot].Assign(dialog.chosen()->country, dialog.chosen()->city);
    current.Save(paths.dataFile(settingsFileName));
    refreshViews();
}

void CMainFrame::chooseSkin() {
    CSkinSetup dialog(paths, profile, toUtf8(current.skinFile), this);
    if (runDialog(dialog) != QDialog::Accepted || !dialog.skinChanged()) {
        return;
    }
    current.skinFile = toUtf16(dialog.chosenSkin());
    current.Save(paths.dataFile(settingsFileName));
    if (viewShown == fullClockView) {
        clockView->applySkin(dialog.chosenSkin());
        refreshViews();
    }
}

void CMainFrame::toggle24Hour() {
    current.use24Hour = current.use24Hour != 0 ? 0 : 1;
    if (QAction* mark = action(32792)) {
        mark->setChecked(current.use24Hour != 0);
    }
    refreshViews();
}

void CMainFrame::showHelp() {
    const std::uint16_t language = languageIdFromLocale(QLocale::system().name().toStdString());
    const std::filesystem::path page = helpPage(paths.root(), language);
    if (!openPage(page)) {
        tellUser(
            commandText(32793),
            tr("The help page %1 could not be opened.").arg(QString::fromStdString(page.string())));
    }
}

void CMainFrame::showAbout() {
    AboutDialog dialog(this);
    runDialog(dialog);
}

void CMainFrame::notYet(const QString& feature) {
    tellUser(feature,
             tr("%1 is not available yet; it comes in a later version of Zonara.").arg(feature));
}

void CMainFrame::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        current.selectedSlot = stepSlot(current.selectedSlot, event->key() == Qt::Key_Up);
        refreshViews();
        return;
    default:
        break;
    }
    const QString text = event->text();
    if (text.size() == 1) {
        if (const auto view = viewForKey(char(text.at(0).toLatin1()))) {
            showView(*view);
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

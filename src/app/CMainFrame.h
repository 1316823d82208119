#pragma once
// The main window: the three views, the soft-key bar and the frame's commands.

#include <QPointer>
#include <QStackedWidget>
#include <QWidget>
#include <filesystem>
#include <functional>

#include "cities/CityCatalog.h"
#include "core/ClockSource.h"
#include "core/DeviceProfile.h"
#include "core/DstRule.h"
#include "core/Paths.h"
#include "core/Settings.h"

class QAction;
class QDialog;
class QMenu;

namespace zonara {

class CClockDetails;
class SoftKeyBar;

class CMainFrame : public QWidget {
    Q_OBJECT
  public:
    CMainFrame(const Paths& paths, const ClockSource& clock, const DeviceProfile& profile,
               QWidget* parent = nullptr);
    ~CMainFrame() override;

    // Runs one command id through the command table; unknown ids do nothing.
    void onCommand(int id);
    // The slow part of the start; it runs on its own once the window shows.
    void deferredStart();

    int shownView() const { return viewShown; }
    const Settings& settings() const { return current; }
    QMenu* menu() const;
    QAction* action(int commandId) const;
    CClockDetails* fullClock() const { return clockView; }

    // How the frame runs a modal dialog, tells the user something and opens a
    // page; tests replace them.
    std::function<int(QDialog&)> runDialog;
    std::function<void(const QString& title, const QString& text)> tellUser;
    std::function<bool(const std::filesystem::path&)> openPage;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void buildMenu();
    void showView(int view);
    void refreshViews();
    void selectCity();
    void chooseSkin();
    void toggle24Hour();
    void showHelp();
    void showAbout();
    void notYet(const QString& feature);
    void rebuildUnderBusyWindow();

    Paths paths;
    ClockSource clock;
    DeviceProfile profile;
    Settings current;
    DstRuleList rules;
    CityCatalog catalog; // countries loaded once, cities on first use
    int viewShown = 0;
    bool started = false;

    QStackedWidget* views;
    CClockDetails* clockView;
    SoftKeyBar* bar;
};

} // namespace zonara

#pragma once
// The main window: the views of the views table, the soft-key bar and the
// menu built from the command table.

#include <QStackedWidget>
#include <QWidget>
#include <vector>

#include "app/frame/FrameContext.h"
#include "cities/CityCatalog.h"
#include "controls/ClockView.h"

class QAction;
class QMenu;

namespace zonara {

class CClockDetails;
class SoftKeyBar;

class CMainFrame : public QWidget {
    Q_OBJECT
  public:
    // config is zonara.ini as the start read it; its defaults when not given.
    CMainFrame(const Paths& paths, const ClockSource& clock, const DeviceProfile& profile,
               Config config = {}, QWidget* parent = nullptr);
    ~CMainFrame() override;

    // Runs one command id through the command table; unknown ids do nothing.
    void onCommand(int id);
    // The slow part of the start; it runs on its own once the window shows.
    void deferredStart();

    int shownView() const { return viewShown; }
    const Settings& settings() const { return current; }
    QMenu* menu() const;
    QAction* action(int commandId) const;
    ClockView* view(int number) const { return views.at(std::size_t(number)); }
    CClockDetails* fullClock() const;

    FrameServices services;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void apply(const FrameResult& result);
    void showView(int number);
    void refreshViews();
    void reloadWorld();

    Paths paths;
    ClockSource clock;
    DeviceProfile profile;
    Config config;
    Settings current;
    DstRuleList rules;
    CityCatalog catalog; // countries loaded once, cities on first use
    int viewShown = 0;
    bool started = false;
    bool skinPending = false; // a new skin waits for the full clock to show

    QStackedWidget* stack;
    std::vector<ClockView*> views; // owned by the stack, in view-number order
    SoftKeyBar* bar;
};

} // namespace zonara

#pragma once
// A full-screen dialog over the main window: a themed content area, a status
// line with a busy icon, and the soft-key bar with a left key and a "Menu" popup.

#include <QDialog>
#include <QPixmap>
#include <QTimer>

#include "core/DeviceProfile.h"

class QAction;
class QLabel;

namespace zonara {

class SoftKeyBar;

class CDialogFrame : public QDialog {
    Q_OBJECT
  public:
    // The dialog covers the parent's window, or takes the profile's size with
    // the bar below it when it has no parent.
    CDialogFrame(const DeviceProfile& profile, const QString& title, QWidget* parent = nullptr);

    // Where the dialog's own widgets go; give it a layout.
    QWidget* content() const { return body; }
    const DeviceProfile& profile() const { return screen; }
    SoftKeyBar* softKeys() const { return bar; }

    // The left soft key runs this command; an empty text hides the key.
    void setLeftKey(const QString& text, int commandId);
    int leftKeyCommand() const { return leftCommand; }
    // An item of the "Menu" popup that runs the command.
    QAction* addMenuCommand(const QString& text, int commandId);
    void addMenuSeparator();
    // The popup's item for a command; nothing when there is none.
    QAction* menuCommand(int commandId) const;

    void setStatus(const QString& text);
    QString status() const;
    // While busy the status icon blinks every 500 ms; a worker's dialog is
    // busy from its start to its end.
    void setBusy(bool busy);
    bool isBusy() const { return busy; }
    // The two pictures the icon blinks between; drawn dots when not given.
    void setBusyIcons(const QPixmap& on, const QPixmap& off);
    const QTimer& blinkTimer() const { return blink; }

    // Runs a command as the soft keys, the menu and the Escape key do.
    void runCommand(int commandId);

  protected:
    // The dialog's own commands. Done ends the dialog accepted, Cancel and the
    // platform's cancel end it rejected; anything else is ignored.
    virtual void onCommand(int commandId);
    void reject() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void showIcon(bool lit);

    DeviceProfile screen;
    QWidget* body;
    QLabel* statusIcon;
    QLabel* statusLine;
    SoftKeyBar* bar;
    int leftCommand = 0;
    bool busy = false;
    bool iconLit = false;
    QPixmap iconOn;
    QPixmap iconOff;
    QTimer blink;
};

} // namespace zonara

#include "controls/CDialogFrame.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>
#include <vector>

#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"

namespace zonara {

namespace {

// A dialog that records its commands and lets the frame end it only on Done.
class Recording : public CDialogFrame {
  public:
    using CDialogFrame::CDialogFrame;
    std::vector<int> seen;

  protected:
    void onCommand(int id) override {
        seen.push_back(id);
        if (id == cmd::Done)
            CDialogFrame::onCommand(id);
    }
};

} // namespace

TEST(CDialogFrame, SoftKeysMenuAndEscapeRunCommandsThatEndTheDialog) {
    const DeviceProfile profile = *deviceProfile(240, 320);
    {
        Recording dialog(profile, "Test");
        dialog.setLeftKey("Start", cmd::StartStop);
        dialog.addMenuCommand("Reset", cmd::Reset);
        dialog.addMenuSeparator();
        dialog.addMenuCommand("Cancel", cmd::Cancel);
        dialog.show();
        dialog.softKeys()->leftButton()->click();
        dialog.menuCommand(cmd::Reset)->trigger();
        dialog.menuCommand(cmd::Cancel)->trigger();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&dialog, &escape);
        // Cancel and Escape reach the dialog, which chose to stay open.
        EXPECT_EQ(dialog.seen,
                  (std::vector<int>{cmd::StartStop, cmd::Reset, cmd::Cancel, cmd::PlatformCancel}));
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.menuCommand(cmd::Done), nullptr);
        dialog.runCommand(cmd::Done);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    // By default Cancel and the platform's cancel end it rejected, other ids do nothing.
    for (const int id : {cmd::Cancel, cmd::PlatformCancel}) {
        CDialogFrame dialog(profile, "Test");
        dialog.show();
        dialog.runCommand(cmd::Update);
        EXPECT_TRUE(dialog.isVisible());
        dialog.runCommand(id);
        EXPECT_FALSE(dialog.isVisible()) << id;
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
    }
}

TEST(CDialogFrame, CoversItsParentAndBlinksWhileBusy) {
    QWidget window;
    window.setGeometry(10, 20, 176, 250);
    CDialogFrame dialog(*deviceProfile(176, 220), "Test", &window);
    EXPECT_EQ(dialog.geometry(), window.geometry());
    dialog.setStatus("Dial Connection");
    EXPECT_EQ(dialog.status(), "Dial Connection");
    EXPECT_FALSE(dialog.blinkTimer().isActive());
    dialog.setBusy(true);
    EXPECT_TRUE(dialog.isBusy());
    EXPECT_TRUE(dialog.blinkTimer().isActive());
    EXPECT_EQ(dialog.blinkTimer().interval(), 500);
    dialog.setBusy(false);
    EXPECT_FALSE(dialog.blinkTimer().isActive());
}

} // namespace zonara

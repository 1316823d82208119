#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "app/CMainFrame.h"
#include "cities/CCitySelection.h"
#include "clocks/CClockDetails.h"
#include "clocks/CSkinSetup.h"
#include "core/WorldFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace {

const SystemTime noon = *parseIsoUtc("2026-07-01T12:00:00Z");

struct Frame {
    test::TempDir dir;
    Paths paths;
    std::unique_ptr<CMainFrame> frame;
    std::vector<QString> told;
    std::vector<std::string> dialogs;

    Frame() {
        City sydney = test::sampleCity("Sydney", 255, 2);
        paths = test::writeWorld(dir.path(), {{"Australia", {sydney}},
                                              {"United Kingdom", {test::sampleCity("London")}}});
        test::writeRules(paths);
        frame = std::make_unique<CMainFrame>(paths, ClockSource::fixedAt(noon),
                                             *deviceProfile(240, 320));
        frame->tellUser = [this](const QString& title, const QString&) { told.push_back(title); };
        frame->runDialog = [this](QDialog& dialog) {
            dialogs.push_back(dialog.metaObject()->className());
            return int(QDialog::Rejected);
        };
        frame->DeferredStart();
    }

    void key(int code, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(frame.get(), &press);
    }

    std::vector<QString> itemTexts(const QMenu* menu) const {
        std::vector<QString> texts;
        for (const QAction* item : menu->actions()) {
            if (!item->isSeparator()) {
                texts.push_back(item->text());
            }
        }
        return texts;
    }
};

QMenu* submenu(QMenu* menu, const QString& title) {
    for (QAction* item : menu->actions()) {
        if (item->menu() != nullptr && item->text() == title) {
            return item->menu();
        }
    }
    return nullptr;
}

} // namespace

TEST(CMainFrame, StartsFromTheSettingsAndRebuildsChangedData) {
    Frame f;
    EXPECT_TRUE(std::filesystem::exists(f.paths.dataFile("tstamp.dat")));
    EXPECT_FALSE(dataFilesChanged(f.paths));
    EXPECT_EQ(f.frame->shownView(), 0);
    EXPECT_EQ(f.frame->fullClock()->localTime().hour, 13); // London in summer time
    EXPECT_EQ(f.frame->fullClock()->localTime().dstState, 1);
    EXPECT_EQ(f.frame->windowTitle(), "Zonara");

    // A saved view and the 24-hour mark come back at the next start.
    Settings saved;
    saved.currentView = 2;
    saved.use24Hour = 1;
    ASSERT_TRUE(saved.Save(f.paths.dataFile("settings.dat")));
    CMainFrame again(f.paths, ClockSource::fixedAt(noon), *deviceProfile(240, 320));
    again.DeferredStart();
    EXPECT_EQ(again.shownView(), 2);
    EXPECT_TRUE(again.action(32792)->isChecked());
}

TEST(CMainFrame, MenuHidesTheSkinCommandButTheCommandStillWorks) {
    Frame f;
    QMenu* setup = submenu(f.frame->menu(), "Setup");
    ASSERT_NE(setup, nullptr);
    EXPECT_EQ(f.itemTexts(setup), (std::vector<QString>{"Update Data", "Use 24 hour clock"}));
    EXPECT_EQ(f.frame->action(32790), nullptr);
    EXPECT_EQ(f.itemTexts(submenu(f.frame->menu(), "View")),
              (std::vector<QString>{"Globe", "Full Clock", "Multi Clock"}));

    f.frame->OnCommand(32790);
    f.frame->OnCommand(32772);
    f.frame->OnCommand(32794);
    EXPECT_EQ(f.dialogs, (std::vector<std::string>{"zonara::CSkinSetup", "zonara::CCitySelection",
                                                   "zonara::AboutDialog"}));
    // Commands whose features come later say so; accepted ids do nothing.
    for (const int id : {32777, 32819, 32820, 32779, 32783, 32780, 32791, 32782, 32784, 32788, 1}) {
        f.frame->OnCommand(id);
    }
    EXPECT_EQ(f.told,
              (std::vector<QString>{"City Details", "Weather", "Weather", "Curreny Conversion",
                                    "Metric", "Stop Watch", "Update Data"}));
}

TEST(CMainFrame, KeysStepSlotsWithWrapAndChooseViewsInMenuOrder) {
    Frame f;
    EXPECT_EQ(f.frame->settings().selectedSlot, 0);
    f.key(Qt::Key_Up);
    EXPECT_EQ(f.frame->settings().selectedSlot, 3);
    f.key(Qt::Key_Down);
    EXPECT_EQ(f.frame->settings().selectedSlot, 0);
    f.key(Qt::Key_Down);
    EXPECT_EQ(f.frame->settings().selectedSlot, 1);

    f.key(Qt::Key_1, "1");
    EXPECT_EQ(f.frame->shownView(), 1);
    f.key(Qt::Key_3, "3");
    EXPECT_EQ(f.frame->shownView(), 2);
    f.key(Qt::Key_2, "2");
    EXPECT_EQ(f.frame->shownView(), 0);
    f.key(Qt::Key_5, "5");
    EXPECT_EQ(f.frame->shownView(), 0);
    f.frame->OnCommand(32774);
    EXPECT_EQ(f.frame->shownView(), 1);
}

TEST(CMainFrame, TwentyFourHourToggleTwiceChangesNothingAndSavesNothing) {
    Frame f;
    const auto file = f.paths.dataFile("settings.dat");
    EXPECT_FALSE(std::filesystem::exists(file));
    f.frame->OnCommand(32792);
    EXPECT_EQ(f.frame->settings().use24Hour, 1);
    EXPECT_TRUE(f.frame->action(32792)->isChecked());
    f.frame->OnCommand(32792);
    EXPECT_EQ(f.frame->settings().use24Hour, 0);
    EXPECT_FALSE(f.frame->action(32792)->isChecked());
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(CMainFrame, SelectCityDoneAssignsTheSelectedSlotAndSaves) {
    Frame f;
    f.key(Qt::Key_Down); // slot 1
    f.frame->runDialog = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("search")->setText("Syd");
        dialog.findChild<QPushButton*>("done")->click();
        return dialog.result();
    };
    f.frame->OnCommand(32772);
    EXPECT_EQ(f.frame->settings().slots[1].cityName, u"Sydney");
    EXPECT_EQ(f.frame->settings().slots[0].cityName, u"London");
    Settings saved;
    ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
    EXPECT_EQ(saved.slots[1].cityName, u"Sydney");
    EXPECT_EQ(f.frame->fullClock()->localTime().hour, 22); // Sydney, winter: +10

    // Cancel leaves everything as it was.
    f.frame->runDialog = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("search")->setText("Lon");
        dialog.reject();
        return dialog.result();
    };
    f.frame->OnCommand(32772);
    EXPECT_EQ(f.frame->settings().slots[1].cityName, u"Sydney");
}

TEST(CMainFrame, ClosingSavesTheViewShown) {
    Frame f;
    f.frame->OnCommand(32776);
    f.frame->close();
    Settings saved;
    ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
    EXPECT_EQ(saved.currentView, 2);
}

} // namespace zonara

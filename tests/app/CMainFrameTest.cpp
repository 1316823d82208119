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
        frame->deferredStart();
    }

    void key(int code, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(frame.get(), &press);
    }
};

// The item texts of the window menu's submenu of that title, separators left out.
std::vector<QString> submenuTexts(const QMenu* menu, const QString& title) {
    std::vector<QString> texts;
    for (const QAction* item : menu->actions())
        if (item->menu() != nullptr && item->text() == title)
            for (const QAction* sub : item->menu()->actions())
                if (!sub->isSeparator())
                    texts.push_back(sub->text());
    return texts;
}

} // namespace

TEST(CMainFrame, StartsFromTheSettingsAndRebuildsChangedData) {
    Frame f;
    EXPECT_TRUE(std::filesystem::exists(f.paths.dataFile("tstamp.dat")));
    EXPECT_FALSE(dataFilesChanged(f.paths));
    EXPECT_EQ(f.frame->shownView(), 0);
    EXPECT_EQ(f.frame->fullClock()->localTime().hour, 13); // London in summer time

    // A saved view and the 24-hour mark come back at the next start.
    Settings saved;
    saved.currentView = 2;
    saved.use24Hour = 1;
    ASSERT_TRUE(saved.Save(f.paths.dataFile("settings.dat")));
    CMainFrame again(f.paths, ClockSource::fixedAt(noon), *deviceProfile(240, 320));
    again.deferredStart();
    EXPECT_EQ(again.shownView(), 2);
    EXPECT_TRUE(again.action(32792)->isChecked());
}

TEST(CMainFrame, MenuHidesTheSkinCommandButTheCommandStillWorks) {
    Frame f;
    EXPECT_EQ(submenuTexts(f.frame->menu(), "Setup"),
              (std::vector<QString>{"Update Data", "Use 24 hour clock"}));
    EXPECT_EQ(f.frame->action(32790), nullptr);
    EXPECT_EQ(submenuTexts(f.frame->menu(), "View"),
              (std::vector<QString>{"Globe", "Full Clock", "Multi Clock"}));

    f.frame->onCommand(32790);
    f.frame->onCommand(32772);
    f.frame->onCommand(32794);
    EXPECT_EQ(f.dialogs, (std::vector<std::string>{"zonara::CSkinSetup", "zonara::CCitySelection",
                                                   "zonara::AboutDialog"}));
    // Commands whose features come later say so; accepted ids do nothing.
    for (const int id : {32777, 32819, 32820, 32779, 32783, 32780, 32791, 32782, 32784, 32788, 1})
        f.frame->onCommand(id);
    EXPECT_EQ(f.told,
              (std::vector<QString>{"City Details", "Weather", "Weather", "Curreny Conversion",
                                    "Metric", "Stop Watch", "Update Data"}));
}

TEST(CMainFrame, KeysStepSlotsWithWrapAndChooseViewsInMenuOrder) {
    Frame f;
    struct Step {
        int key;
        const char* text;
        int slot, view;
    };
    // Up from the first slot wraps to the last and back; 1-3 follow the View
    // menu (Globe, Full Clock, Multi Clock), other digits do nothing.
    for (const Step s :
         {Step{Qt::Key_Up, "", 3, 0}, Step{Qt::Key_Down, "", 0, 0}, Step{Qt::Key_Down, "", 1, 0},
          Step{Qt::Key_1, "1", 1, 1}, Step{Qt::Key_3, "3", 1, 2}, Step{Qt::Key_2, "2", 1, 0},
          Step{Qt::Key_5, "5", 1, 0}}) {
        f.key(s.key, s.text);
        EXPECT_EQ(f.frame->settings().selectedSlot, s.slot) << s.key;
        EXPECT_EQ(f.frame->shownView(), s.view) << s.key;
    }
    f.frame->onCommand(32774);
    EXPECT_EQ(f.frame->shownView(), 1);
}

TEST(CMainFrame, TwentyFourHourToggleTwiceSavesNothingButClosingSavesTheView) {
    Frame f;
    const auto file = f.paths.dataFile("settings.dat");
    for (const int expected : {1, 0}) {
        f.frame->onCommand(32792);
        EXPECT_EQ(f.frame->settings().use24Hour, expected);
        EXPECT_EQ(f.frame->action(32792)->isChecked(), expected == 1);
    }
    EXPECT_FALSE(std::filesystem::exists(file));
    f.frame->onCommand(32776);
    f.frame->close();
    Settings saved;
    ASSERT_TRUE(saved.Load(file));
    EXPECT_EQ(saved.currentView, 2);
    EXPECT_EQ(saved.use24Hour, 0);
}

TEST(CMainFrame, SelectCityDoneAssignsTheSelectedSlotAndSaves) {
    Frame f;
    f.key(Qt::Key_Down); // slot 1
    f.frame->runDialog = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("search")->setText("Syd");
        dialog.findChild<QPushButton*>("done")->click();
        return dialog.result();
    };
    f.frame->onCommand(32772);
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
    f.frame->onCommand(32772);
    EXPECT_EQ(f.frame->settings().slots[1].cityName, u"Sydney");
}

} // namespace zonara

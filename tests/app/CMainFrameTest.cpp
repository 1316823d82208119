#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "app/frame/CMainFrame.h"
#include "app/frame/FrameCommands.h"
#include "cities/CCitySelection.h"
#include "clocks/CClockDetails.h"
#include "clocks/CSkinSetup.h"
#include "controls/CommandIds.h"
#include "core/WorldFiles.h"
#include "net/CUpdateDlg.h"
#include "support/EventWait.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"
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
    std::vector<std::filesystem::path> pages;

    Frame() {
        City sydney = test::sampleCity("Sydney", 255, 2);
        paths = test::writeWorld(dir.path(), {{"Australia", {sydney}},
                                              {"United Kingdom", {test::sampleCity("London")}}});
        test::writeRules(paths);
        frame = std::make_unique<CMainFrame>(paths, ClockSource::fixedAt(noon),
                                             *deviceProfile(240, 320));
        frame->services.tellUser = [this](const QString& title, const QString&) {
            told.push_back(title);
        };
        frame->services.runDialog = [this](QDialog& dialog) {
            dialogs.push_back(dialog.metaObject()->className());
            return int(QDialog::Rejected);
        };
        frame->services.openPage = [this](const std::filesystem::path& page) {
            pages.push_back(page);
            return true;
        };
        frame->deferredStart();
    }

    void key(int code, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(frame.get(), &press);
    }
};

// The whole menu as "Popup/Item" lines, separators as "-".
std::vector<std::string> menuLines(const QMenu* menu, const std::string& prefix = {}) {
    std::vector<std::string> lines;
    for (const QAction* item : menu->actions()) {
        if (item->isSeparator()) {
            lines.push_back("-");
        } else if (item->menu() != nullptr) {
            for (std::string& inner : menuLines(item->menu(), item->text().toStdString() + "/"))
                lines.push_back(std::move(inner));
        } else {
            lines.push_back(prefix + item->text().toStdString());
        }
    }
    return lines;
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
    EXPECT_TRUE(again.action(cmd::UseTwentyFourHour)->isChecked());
}

TEST(CMainFrame, MenuIsTheTablesShownRowsInOrderWithoutTheSkinItem) {
    Frame f;
    EXPECT_EQ(
        menuLines(f.frame->menu()),
        (std::vector<std::string>{"View/Globe", "View/Full Clock", "View/Multi Clock",
                                  "City Details", "Weather/Update", "Weather/Show Last",
                                  "Curreny Conversion", "Metric", "Stop Watch", "Setup/Update Data",
                                  "Setup/Use 24 hour clock", "-", "Help", "About", "Exit"}));
    EXPECT_EQ(f.frame->action(cmd::FullClockSkin), nullptr);
    // Every shown row, and no other, has its item carrying its id.
    for (const FrameCommand& row : frameCommands()) {
        QAction* item = f.frame->action(row.id);
        EXPECT_EQ(item != nullptr, row.item == MenuItem::Shown) << row.id;
    }
}

TEST(CMainFrame, EveryCommandOfTheTableReachesItsHandler) {
    // What each id does, seen from outside; a new row needs a row here.
    struct Expect {
        int id;
        const char* dialog = ""; // the dialog it runs
        const char* told = "";   // what it tells the user
        int view = -1;           // the view it shows
        bool toggles24Hour = false;
        bool opensPage = false;
        bool closes = false;
    };
    const std::vector<Expect> table = {
        {cmd::SelectCity, "zonara::CCitySelection"},
        {cmd::Globe, "", "", 1},
        {cmd::FullClock, "", "", 0},
        {cmd::MultiClock, "", "", 2},
        {cmd::CityDetails, "zonara::CCityDetails"},
        {cmd::WeatherUpdate, "zonara::CWeatherDlg"},
        {cmd::WeatherShowLast, "zonara::CWeatherDlg"},
        {cmd::CurrencyConversion, "zonara::CCurrencyCalc2Dlg"},
        {cmd::Metric, "zonara::CMetricCalc2"},
        {cmd::StopWatch, "zonara::CStopWatch"},
        {cmd::FullClockSkin, "zonara::CSkinSetup"},
        {cmd::UpdateData, "zonara::CUpdateDlg"},
        {cmd::UseTwentyFourHour, "", "", -1, true},
        {cmd::Help, "", "", -1, false, true},
        {cmd::About, "zonara::AboutDialog"},
        {cmd::Exit, "", "", -1, false, false, true},
        {cmd::PlatformCancel, "", "", -1, false, false, true},
        {32782},
        {32784},
        {32785},
        {32786},
        {32787},
        {32788},
    };
    ASSERT_EQ(table.size(), frameCommands().size());
    for (const Expect& e : table) {
        SCOPED_TRACE(e.id);
        ASSERT_NE(findFrameCommand(e.id), nullptr);
        Frame f;
        f.frame->show();
        const int view = f.frame->shownView();
        f.frame->onCommand(e.id);
        QCoreApplication::processEvents();
        EXPECT_EQ(f.dialogs,
                  e.dialog[0] ? std::vector<std::string>{e.dialog} : std::vector<std::string>{});
        EXPECT_EQ(f.told, e.told[0] ? std::vector<QString>{e.told} : std::vector<QString>{});
        EXPECT_EQ(f.frame->shownView(), e.view >= 0 ? e.view : view);
        EXPECT_EQ(f.frame->settings().use24Hour, e.toggles24Hour ? 1 : 0);
        EXPECT_EQ(f.pages.size(), e.opensPage ? 1u : 0u);
        EXPECT_EQ(f.frame->isVisible(), !e.closes);
    }
    // Ids outside the table do nothing at all.
    Frame f;
    for (const int id : {0, 1, 32773, 32796, 40000})
        f.frame->onCommand(id);
    EXPECT_TRUE(f.dialogs.empty() && f.told.empty());
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
}

TEST(CMainFrame, TwentyFourHourToggleTwiceSavesNothingButClosingSavesTheView) {
    Frame f;
    const auto file = f.paths.dataFile("settings.dat");
    for (const int expected : {1, 0}) {
        f.frame->onCommand(cmd::UseTwentyFourHour);
        EXPECT_EQ(f.frame->settings().use24Hour, expected);
        EXPECT_EQ(f.frame->action(cmd::UseTwentyFourHour)->isChecked(), expected == 1);
    }
    EXPECT_FALSE(std::filesystem::exists(file));
    f.frame->onCommand(cmd::MultiClock);
    f.frame->close();
    Settings saved;
    ASSERT_TRUE(saved.Load(file));
    EXPECT_EQ(saved.currentView, 2);
    EXPECT_EQ(saved.use24Hour, 0);
}

TEST(CMainFrame, SelectCityDoneAssignsTheSelectedSlotAndSaves) {
    Frame f;
    f.key(Qt::Key_Down); // slot 1
    f.frame->services.runDialog = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("search")->setText("Syd");
        dialog.findChild<QPushButton*>("done")->click();
        return dialog.result();
    };
    f.frame->onCommand(cmd::SelectCity);
    EXPECT_EQ(f.frame->settings().slots[1].cityName, u"Sydney");
    EXPECT_EQ(f.frame->settings().slots[0].cityName, u"London");
    Settings saved;
    ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
    EXPECT_EQ(saved.slots[1].cityName, u"Sydney");
    EXPECT_EQ(f.frame->fullClock()->localTime().hour, 22); // Sydney, winter: +10

    // Cancel leaves everything as it was.
    f.frame->services.runDialog = [](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("search")->setText("Lon");
        dialog.reject();
        return dialog.result();
    };
    f.frame->onCommand(cmd::SelectCity);
    EXPECT_EQ(f.frame->settings().slots[1].cityName, u"Sydney");
}

TEST(CMainFrame, UpdateDataInstallsThenRebuildsAndLooksTheSlotsUpAgainByName) {
    test::TempDir dir;
    const Paths paths =
        test::writeWorld(dir.path(), {{"Australia", {test::sampleCity("Sydney", 255, 2)}},
                                      {"United Kingdom", {test::sampleCity("London")}}});
    test::writeRules(paths);
    Settings saved; // slot 0 London, as by default
    CityCatalog before(paths);
    saved.slots[1].Assign(before.countries()[0], before.city({0, 0}));
    ASSERT_TRUE(saved.Save(paths.dataFile("settings.dat")));

    // The host's world: Australia gone, London with another airport code, and
    // rule 1 with its summer in the southern months.
    test::TempDir published;
    City london = test::sampleCity("London");
    london.airportCode = "LCY";
    const Paths served = test::writeWorld(
        published.path(), {{"Japan", {test::sampleCity("Tokyo")}}, {"United Kingdom", {london}}});
    test::writeFile(served.dataFile("daylight40.dat"), "LastSunOct 01:00\tLastSunMar 00:59\r\n"
                                                       "FirstSunOct 02:00\tFirstSunApr 01:59\r\n");
    test::UpdateHost host(served.dataDir());
    ASSERT_TRUE(host.ok()) << host.error();

    Config config;
    config.network.httpPort = host.port();
    config.update.primary = "127.0.0.1";
    CMainFrame frame(paths, ClockSource::fixedAt(noon), *deviceProfile(240, 320), config);
    std::vector<QString> statuses;
    frame.services.runDialog = [&](QDialog& dialog) {
        auto& update = dynamic_cast<CUpdateDlg&>(dialog);
        update.runCommand(cmd::Update);
        EXPECT_TRUE(test::processEventsUntil([&] { return !update.runShown(); }));
        statuses.push_back(update.statusText());
        update.runCommand(cmd::Done);
        return update.result();
    };
    frame.deferredStart();
    EXPECT_EQ(frame.fullClock()->localTime().hour, 13); // London in summer time

    frame.onCommand(cmd::UpdateData);
    EXPECT_EQ(statuses, std::vector<QString>{"Finished"});
    EXPECT_FALSE(dataFilesChanged(paths)); // rebuilt
    EXPECT_EQ(frame.settings().slots[0].airportCode, u"LCY");
    EXPECT_EQ(frame.settings().slots[1].cityName, u"Sydney"); // gone: kept as it was
    EXPECT_EQ(frame.settings().slots[1].timeZoneIndex, 255);
    EXPECT_EQ(frame.fullClock()->localTime().hour, 12); // the new rule 1 is read
    Settings reread;
    ASSERT_TRUE(reread.Load(paths.dataFile("settings.dat")));
    EXPECT_EQ(reread.slots[0].airportCode, u"LCY");

    // Nothing new the second time: nothing rebuilt, nothing saved.
    std::filesystem::remove(paths.dataFile("settings.dat"));
    frame.onCommand(cmd::UpdateData);
    EXPECT_EQ(statuses, (std::vector<QString>{"Finished", "No new data"}));
    EXPECT_FALSE(std::filesystem::exists(paths.dataFile("settings.dat")));
}

} // namespace zonara

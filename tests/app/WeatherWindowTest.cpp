// The weather window as the frame's Weather menu runs it.

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QLabel>

#include "app/frame/CMainFrame.h"
#include "controls/CDialogFrame.h"
#include "controls/CommandIds.h"
#include "core/SystemTime.h"
#include "core/Text.h"
#include "net/CWeatherDlg.h"
#include "net/Config.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

const std::string report = R"xml(<?xml version="1.0"?>
<root><city hdate="Sydney, Australia" date="Wed 1 Jul 2026 22:00"/>
<now icon="sunnyn.gif" temp="50" barom="30.10 in" baromb="1019 mb"/></root>
)xml";

struct WeatherFrame {
    test::TempDir dir;
    Paths paths;
    std::unique_ptr<CMainFrame> frame;
    std::vector<QString> told;

    explicit WeatherFrame(const std::string& config = {}) {
        paths = test::writeWorld(dir.path(), {{"United Kingdom", {test::sampleCity("London")}}});
        test::writeRules(paths);
        test::writeFile(paths.dataFile("weather.xml"), report);
        if (!config.empty())
            test::writeFile(paths.root() / "zonara.ini", config);
        // The stored report is Sydney's, as an earlier update left it.
        Settings settings;
        settings.weatherQuery = u"Sydney%2C+AU";
        settings.weatherCity = u"Sydney";
        settings.weatherCountry = u"Australia";
        settings.Save(paths.dataFile("settings.dat"));
        // zonara.ini as the window's start reads it.
        frame = std::make_unique<CMainFrame>(
            paths, ClockSource::fixedAt(*parseIsoUtc("2026-07-01T12:00:00Z")),
            *deviceProfile(240, 320), readConfig(configFile(paths)).config);
        frame->services.tellUser = [this](const QString& title, const QString& text) {
            told.push_back(title + ": " + text);
        };
        frame->deferredStart();
    }
};

TEST(WeatherWindow, ShowLastShowsTheStoredReportAndSavesAUnitSwitchHoweverItCloses) {
    struct Row {
        int switchCommand; // chosen in the window's menu; 0 for none
        bool accept;
        std::uint8_t celsius, millibar;
        const char *temperature, *barometer;
        bool saved;
    };
    const Row rows[] = {
        {0, true, 1, 1, "10 °C", "1019 mb", false},
        {cmd::UseCelsius, true, 0, 1, "50 °F", "1019 mb", true},
        {cmd::UseMillibar, false, 1, 0, "10 °C", "30.10 in", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.switchCommand);
        WeatherFrame f;
        QString temperature, barometer, status;
        f.frame->services.runDialog = [&](QDialog& dialog) {
            auto& window = static_cast<CDialogFrame&>(dialog);
            if (row.switchCommand != 0)
                window.menuCommand(row.switchCommand)->trigger();
            temperature = dialog.findChild<QLabel*>("temperature")->text();
            barometer = dialog.findChild<QLabel*>("barometer")->text();
            status = window.status();
            window.runCommand(row.accept ? cmd::Done : cmd::PlatformCancel);
            return dialog.result();
        };
        f.frame->onCommand(cmd::WeatherShowLast);
        EXPECT_EQ(temperature, row.temperature);
        EXPECT_EQ(barometer, row.barometer);
        EXPECT_EQ(status, "Sydney, Australia");
        EXPECT_EQ(f.frame->settings().useCelsius, row.celsius);
        EXPECT_EQ(f.frame->settings().useMillibar, row.millibar);
        Settings saved;
        ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
        EXPECT_EQ(saved.useCelsius, row.saved ? row.celsius : 1);
        EXPECT_EQ(saved.useMillibar, row.saved ? row.millibar : 1);
        EXPECT_TRUE(f.told.empty());
    }
}

TEST(WeatherWindow, UpdateStoresTheSlotsReportOrTellsOnceWhatFailedAndShowsTheLastAgain) {
    const std::string london = R"xml(<?xml version="1.0"?>
<root><city hdate="London, United Kingdom"/><now icon="rain.gif" temp="41"/></root>
)xml";
    struct Row {
        const char* name;
        bool answers; // the update host serves a report
        const char* network;
        std::vector<QString> told;
        const char *heading, *status, *temperature;
        const char16_t* savedCity; // the stored report's city in the saved settings
    };
    const char* sydney = "Sydney, Australia";
    // clang-format off
    const Row rows[] = {
        {"the host answers",      true,  "",               {},                                         "London, United Kingdom", "London, United Kingdom", "5 °C",  u"London"},
        {"no report on the host", false, "",               {"Zonara: No weather available for city"}, sydney,                   sydney,                   "10 °C", u"Sydney"},
        {"offline",               true,  "offline=true\n", {"Zonara: Unable to Connect"},             sydney,                   sydney,                   "10 °C", u"Sydney"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::LocalHttpServer host;
        if (row.answers)
            host.route("/cgi-bin/hamweather/hw3.pl", test::reply(200, london));
        WeatherFrame f("[network]\nhttp_port=" + std::to_string(host.port()) + "\n" + row.network +
                       "[update]\nprimary=127.0.0.1\nfallback=127.0.0.1\n");
        QString heading, status, temperature;
        f.frame->services.runDialog = [&](QDialog& dialog) {
            auto& window = static_cast<CWeatherDlg&>(dialog);
            window.show(); // the update starts as the window opens
            EXPECT_TRUE(window.isRunning());
            for (int i = 0; i < 4000 && window.isRunning(); ++i) {
                QCoreApplication::processEvents();
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
            EXPECT_FALSE(window.isRunning());
            heading = dialog.findChild<QLabel*>("heading")->text();
            temperature = dialog.findChild<QLabel*>("temperature")->text();
            status = window.status();
            window.runCommand(cmd::Done);
            return dialog.result();
        };
        f.frame->onCommand(cmd::WeatherUpdate);
        EXPECT_EQ(f.told, row.told);
        EXPECT_EQ(heading, row.heading);
        EXPECT_EQ(temperature, row.temperature);
        EXPECT_EQ(status, row.status);
        Settings saved;
        ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
        EXPECT_EQ(saved.weatherCity, row.savedCity);
        if (row.answers && row.told.empty()) {
            EXPECT_EQ(saved.weatherQuery, u"London%2C+GB");
            ASSERT_EQ(host.requests().size(), 1u);
            EXPECT_EQ(
                host.requests().front().target,
                "/cgi-bin/hamweather/hw3.pl?config=&maxdays=4&forecast=zandh&pands=London%2C+GB");
        }
    }
}

} // namespace
} // namespace zonara

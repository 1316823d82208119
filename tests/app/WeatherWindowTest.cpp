// The weather window as the frame's Weather menu runs it.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>

#include "app/frame/CMainFrame.h"
#include "controls/CDialogFrame.h"
#include "controls/CommandIds.h"
#include "core/SystemTime.h"
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

    WeatherFrame() {
        paths = test::writeWorld(dir.path(), {{"United Kingdom", {test::sampleCity("London")}}});
        test::writeRules(paths);
        test::writeFile(paths.dataFile("weather.xml"), report);
        frame = std::make_unique<CMainFrame>(
            paths, ClockSource::fixedAt(*parseIsoUtc("2026-07-01T12:00:00Z")),
            *deviceProfile(240, 320));
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
        EXPECT_EQ(status, ""); // no report was stored through the window yet
        EXPECT_EQ(f.frame->settings().useCelsius, row.celsius);
        EXPECT_EQ(f.frame->settings().useMillibar, row.millibar);
        EXPECT_EQ(std::filesystem::exists(f.paths.dataFile("settings.dat")), row.saved);
        if (row.saved) {
            Settings saved;
            ASSERT_TRUE(saved.Load(f.paths.dataFile("settings.dat")));
            EXPECT_EQ(saved.useCelsius, row.celsius);
            EXPECT_EQ(saved.useMillibar, row.millibar);
        }
        EXPECT_TRUE(f.told.empty());
    }
}

} // namespace
} // namespace zonara

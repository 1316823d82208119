#include "net/CWeatherDlg.h"

#include <chrono>
#include <condition_variable>
#include <thread>

#include <QAction>
#include <QCoreApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "net/WeatherTexts.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;
using Kind = WeatherOutcome::Kind;

const std::string london = R"xml(<?xml version="1.0"?>
<root>
<city hdate="London, United Kingdom" date="Wed 1 Jul 2026 12:00"/>
<now icon="PCLOUDY.GIF" temp="59" humd="72%" winds="SW 9 mph" barom="30.01 in" baromb="1016 mb" dewp="50" wind="57"/>
<forcast>
<item day="WEDNESSDAY" icon="sunny.gif" dayh="68" dayl="-1000"/>
<item day="WEDNESSDAY NIGHT" icon="tstormn.gif" dayh="-1000" dayl="41"/>
<item day="Thursday afternoon" icon="nothing.gif" dayh="0" dayl="-1000"/>
</forcast>
<credit text="Data from MET Norway (CC BY 4.0)"/>
</root>
)xml";

const std::string oslo = R"xml(<?xml version="1.0"?>
<root>
<city hdate="Oslo/Fornebu" date="Wed 1 Jul 2026 13:00"/>
<now icon="snow.gif" temp="23"/>
<forcast><item day="FRIDAY" icon="snow.gif" dayh="30" dayl="-1000"/></forcast>
</root>
)xml";

class CWeatherDlgTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_symlink(test::sourceDir() / "graphics", paths.graphicsDir());
        test::writeFile(paths.dataFile("weather.xml"), london);
    }

    std::unique_ptr<CWeatherDlg> dialog(WeatherUpdater updater = {},
                                        WeatherUnits units = {true, true}, int width = 240,
                                        int height = 320) {
        auto made = std::make_unique<CWeatherDlg>(paths, *deviceProfile(width, height), units,
                                                  "London, United Kingdom", "Oslo, Norway",
                                                  std::move(updater));
        made->tellUser = [this](const QString& title, const QString& text) {
            told.push_back((title + ": " + text).toStdString());
        };
        return made;
    }

    // Lets the window's thread take the worker's reports until the run ends;
    // bounded, so a run that never ends fails the test instead of hanging it.
    static void waitForRun(const CWeatherDlg& dlg) {
        for (int i = 0; i < 4000 && dlg.isRunning(); ++i) {
            QCoreApplication::processEvents();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        ASSERT_FALSE(dlg.isRunning());
    }

    static QString text(const CWeatherDlg& dlg, const char* name) {
        const auto* found = dlg.findChild<QLabel*>(QString::fromLatin1(name));
        return found ? found->text() : QStringLiteral("<none>");
    }

    static std::vector<std::string> texts(const CWeatherDlg& dlg, const char* name) {
        std::vector<std::string> all;
        for (const QLabel* found : dlg.findChildren<QLabel*>(QString::fromLatin1(name)))
            all.push_back(found->text().toStdString());
        return all;
    }

    test::TempDir root;
    Paths paths{root.path()};
    std::vector<std::string> told;
};

TEST_F(CWeatherDlgTest, ShowsTheStoredReportInBothUnitsAndBothPages) {
    auto dlg = dialog();
    EXPECT_EQ(text(*dlg, "heading"), "London, United Kingdom");
    EXPECT_EQ(text(*dlg, "date"), "Wed 1 Jul 2026 12:00");
    EXPECT_EQ(text(*dlg, "description"), "Partly cloudy");
    EXPECT_FALSE(dlg->findChild<QLabel*>("nowIcon")->pixmap().isNull());
    EXPECT_EQ(text(*dlg, "credit"), "Data from MET Norway (CC BY 4.0)");
    EXPECT_EQ(dlg->status(), "London, United Kingdom");
    EXPECT_EQ(texts(*dlg, "periodName"),
              (std::vector<std::string>{"WED", "WED NIGHT", "THURS NOON"}));
    EXPECT_EQ(texts(*dlg, "periodIcon").size(), 3u);
    EXPECT_EQ(texts(*dlg, "label"), (std::vector<std::string>{"Humidity", "Wind Speed", "Barometer",
                                                              "Dew Point", "Wind Chill"}));

    EXPECT_EQ(text(*dlg, "humidity"), "72%");
    EXPECT_EQ(text(*dlg, "windSpeed"), "SW 9 mph");
    EXPECT_EQ(text(*dlg, "dewPoint"), "10 °C");
    EXPECT_EQ(text(*dlg, "windChill"), "13 °C");

    struct Row {
        int command; // what the user chooses from the menu, in turn
        bool celsius, millibar, changed;
        const char *temperature, *barometer, *secondLine;
    };
    // clang-format off
    const Row rows[] = {
        {0,                true,  true,  false, "15 °C", "1016 mb",  "Day : High()  Low(5 °C)"},
        {cmd::UseCelsius,  false, true,  true,  "59 °F", "1016 mb",  "Day : High()  Low(41 °F)"},
        {cmd::UseMillibar, false, false, true,  "59 °F", "30.01 in", "Day : High()  Low(41 °F)"},
        {cmd::UseCelsius,  true,  false, true,  "15 °C", "30.01 in", "Day : High()  Low(5 °C)"},
        {cmd::UseMillibar, true,  true,  false, "15 °C", "1016 mb",  "Day : High()  Low(5 °C)"},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.command);
        if (row.command != 0)
            dlg->menuCommand(row.command)->trigger();
        EXPECT_EQ(dlg->units().celsius, row.celsius);
        EXPECT_EQ(dlg->units().millibar, row.millibar);
        EXPECT_EQ(dlg->celsiusAction()->isChecked(), row.celsius);
        EXPECT_EQ(dlg->millibarAction()->isChecked(), row.millibar);
        EXPECT_EQ(dlg->unitsChanged(), row.changed);
        EXPECT_EQ(text(*dlg, "temperature"), row.temperature);
        EXPECT_EQ(text(*dlg, "barometer"), row.barometer);
        EXPECT_EQ(texts(*dlg, "periodLine").at(1), row.secondLine);
    }

    // The left key offers the page not shown; the menu reaches both.
    QPushButton* left = dlg->softKeys()->leftButton();
    struct Step {
        std::function<void()> act;
        bool forecast;
        const char* leftKey;
    };
    const Step steps[] = {
        {[] {}, false, "Show Forecast"},
        {[&] { left->click(); }, true, "Show Now"},
        {[&] { left->click(); }, false, "Show Forecast"},
        {[&] { dlg->menuCommand(cmd::ShowForecast)->trigger(); }, true, "Show Now"},
        {[&] { dlg->menuCommand(cmd::ShowNow)->trigger(); }, false, "Show Forecast"},
    };
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        steps[i].act();
        EXPECT_EQ(dlg->showsForecast(), steps[i].forecast) << i;
        EXPECT_EQ(left->text(), steps[i].leftKey) << i;
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(CWeatherDlgTest, WithoutAStoredReportTheWindowIsEmptyAndAFieldLeftOutKeepsItsText) {
    fs::remove(paths.dataFile("weather.xml"));
    auto empty = dialog();
    EXPECT_FALSE(empty->report().has_value());
    EXPECT_EQ(text(*empty, "heading"), "");
    EXPECT_TRUE(texts(*empty, "periodName").empty());

    // A report read after another keeps the first one's values where it has none.
    test::writeFile(paths.dataFile("weather.xml"), london);
    auto dlg = dialog();
    test::writeFile(paths.dataFile("weather.xml"), oslo);
    dlg->menuCommand(cmd::UseCelsius)->trigger();
    EXPECT_EQ(text(*dlg, "heading"), "Oslo/Fornebu");
    EXPECT_EQ(text(*dlg, "temperature"), "23 °F");
    EXPECT_EQ(text(*dlg, "description"), "Snow");
    EXPECT_EQ(text(*dlg, "humidity"), "72%");
    EXPECT_EQ(text(*dlg, "credit"), "Data from MET Norway (CC BY 4.0)");
    EXPECT_EQ(texts(*dlg, "periodName"), std::vector<std::string>{"FRI"});
}

TEST_F(CWeatherDlgTest, EachWayARunEndsLeavesTheRightReportStatusAndMessage) {
    struct Row {
        const char* name;
        Kind kind;
        std::string_view error;
        bool writes; // the run stores Oslo's report
        std::vector<std::string> told;
        std::string status;
        std::string heading;
    };
    const std::string uk = "London, United Kingdom";
    // The status line names the city of the report kept, the heading is the report's.
    // clang-format off
    const Row rows[] = {
        {"stored",     Kind::Stored,    "",                        true,  {},                                         "Oslo, Norway", "Oslo/Fornebu"},
        {"no host",    Kind::Failed,    weather_text::serverError, false, {"Zonara: Server error, try later"},        uk,             uk},
        {"no report",  Kind::Failed,    weather_text::noWeather,   false, {"Zonara: No weather available for city"}, uk,             uk},
        {"not stored", Kind::NotStored, "",                        false, {},                                         uk,             uk},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::writeFile(paths.dataFile("weather.xml"), london);
        told.clear();
        std::thread::id workerThread;
        auto dlg = dialog([&](const WeatherUnits& units, const auto& status, std::stop_token) {
            workerThread = std::this_thread::get_id();
            status(weather_text::connecting);
            status(weather_text::gettingWeather);
            if (row.writes)
                test::writeFile(paths.dataFile("weather.xml"), oslo);
            WeatherOutcome outcome;
            outcome.kind = row.kind;
            outcome.error = std::string(row.error);
            outcome.report = loadWeatherReport(paths.dataFile("weather.xml"), units);
            return outcome;
        });
        dlg->show();
        EXPECT_FALSE(dlg->isRunning()); // only the frame's "Update" starts on showing
        ASSERT_TRUE(dlg->startUpdate());
        EXPECT_TRUE(dlg->isBusy());
        EXPECT_TRUE(dlg->blinkTimer().isActive());
        EXPECT_FALSE(dlg->menuCommand(cmd::UpdateWeather)->isEnabled());
        EXPECT_FALSE(dlg->startUpdate());
        waitForRun(*dlg);
        EXPECT_NE(workerThread, std::this_thread::get_id());
        EXPECT_EQ(told, row.told);
        EXPECT_EQ(dlg->status().toStdString(), row.status);
        EXPECT_EQ(text(*dlg, "heading").toStdString(), row.heading);
        EXPECT_EQ(dlg->reportStored(), row.kind == Kind::Stored);
        EXPECT_FALSE(dlg->isBusy());
        EXPECT_FALSE(dlg->blinkTimer().isActive());
        EXPECT_TRUE(dlg->menuCommand(cmd::UpdateWeather)->isEnabled());
    }
}

TEST_F(CWeatherDlgTest, TheFramesUpdateStartsOnShowingAndClosingStopsTheRun) {
    for (const int closer : {cmd::Done, cmd::PlatformCancel}) {
        SCOPED_TRACE(closer);
        std::mutex mutex;
        std::condition_variable_any wake;
        bool started = false;
        auto dlg = dialog([&](const WeatherUnits&, const auto& status, std::stop_token stop) {
            status(weather_text::connecting);
            std::unique_lock lock(mutex);
            started = true;
            wake.notify_all();
            // Waits for the stop as a transfer would, for 20 s at most.
            wake.wait_for(lock, stop, std::chrono::seconds(20), [] { return false; });
            WeatherOutcome outcome;
            outcome.kind = stop.stop_requested() ? Kind::Cancelled : Kind::Failed;
            outcome.error = std::string(weather_text::serverError);
            return outcome;
        });
        dlg->updateWhenShown(true);
        dlg->show();
        EXPECT_TRUE(dlg->isRunning());
        {
            std::unique_lock lock(mutex);
            wake.wait_for(lock, std::chrono::seconds(20), [&] { return started; });
        }
        dlg->runCommand(closer);
        EXPECT_FALSE(dlg->isRunning());
        EXPECT_FALSE(dlg->isBusy());
        EXPECT_EQ(dlg->result(), closer == cmd::Done ? QDialog::Accepted : QDialog::Rejected);
        QCoreApplication::processEvents();
        EXPECT_TRUE(told.empty());
        EXPECT_FALSE(dlg->reportStored());
        EXPECT_EQ(dlg->status(), "London, United Kingdom");
    }
}

TEST_F(CWeatherDlgTest, TheBackgroundIsTheSkyPictureForEveryProfile) {
    for (const auto& [width, height] :
         {std::pair{176, 220}, {240, 320}, {480, 640}, {320, 240}, {640, 480}}) {
        SCOPED_TRACE(width);
        auto dlg = dialog({}, {true, true}, width, height);
        dlg->show();
        const QImage shot = dlg->grab().toImage();
        // The top corner shows the picture's light sky, not the dark theme;
        // the pictures' sky is blue over red.
        const QRgb corner = shot.pixel(1, 1);
        EXPECT_GT(qGray(corner), 60);
        EXPECT_GT(qBlue(corner), qRed(corner) + 40);
    }
}

} // namespace
} // namespace zonara

#include "net/WeatherWorker.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "WeatherFakeUpstream.h"
#include "WeatherMetJson.h"
#include "core/SystemTime.h"
#include "core/Text.h"
#include "core/WorldFiles.h"
#include "net/WeatherMetNoSource.h"
#include "net/WeatherSettings.h"
#include "net/WeatherTexts.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;

std::string report(std::string_view temp) {
    return "<?xml version=\"1.0\"?>\n<root>\n<now icon=\"rain.gif\" temp=\"" + std::string(temp) +
           "\"/>\n</root>\n";
}

// Hosts that open or not and pages that come back or not, with every call
// written down in order.
class FakeTransport final : public WeatherTransport {
  public:
    bool connects = true;
    std::map<std::string, bool> opens;                       // host → open succeeds
    std::map<std::string, std::optional<std::string>> pages; // host → page body
    std::vector<std::string> calls;

    bool ensureConnection(const std::string& host) override {
        calls.push_back("connect " + host);
        return connects;
    }
    bool open(const std::string& host) override {
        calls.push_back("open " + host);
        current = host;
        return opens[host];
    }
    std::optional<std::string> get(const std::string& path) override {
        calls.push_back("get " + current + path);
        return pages[current];
    }
    void close() override { calls.push_back("close"); }

  private:
    std::string current;
};

const std::string firstPath =
    "/cgi-bin/hamweather/hw3.pl?config=&maxdays=4&forecast=zandh&pands=London%2C+GB";
const std::string secondPath =
    "/cgi-bin/hamweather/hw3.cgi?config=&maxdays=4&forecast=zandh&pands=London%2C+GB";

TEST(WeatherSetupChoice, SourceSettingAndHostOrder) {
    struct Row {
        const char* source;
        const char* updatePrimary;
        const char* updateFallback;
        WeatherMode mode;
    };
    const Row rows[] = {
        {"auto", "up.example", "down.example", WeatherMode::Hosts},
        {"auto", "up.example", "", WeatherMode::Hosts},
        {"auto", "", "down.example", WeatherMode::Hosts},
        {"auto", "", "", WeatherMode::Direct},
        {"metno", "up.example", "down.example", WeatherMode::Direct},
        {"hosts", "", "", WeatherMode::Hosts},
        {"", "", "", WeatherMode::Direct},
    };
    for (const Row& row : rows) {
        const WeatherSetup setup =
            chooseWeatherSetup(row.source, row.updatePrimary, row.updateFallback);
        EXPECT_EQ(setup.mode, row.mode) << row.source << row.updatePrimary << row.updateFallback;
        // The weather service asks the update's fallback host first.
        EXPECT_EQ(setup.primaryHost, row.updateFallback);
        EXPECT_EQ(setup.fallbackHost, row.updatePrimary);
    }
    EXPECT_EQ(weatherPath(0, "London%2C+GB"), firstPath);
    EXPECT_EQ(weatherPath(1, "London%2C+GB"), secondPath);
}

TEST(WeatherWorker, TwoAttemptsOnTheHostsAndWhatEachFailureSays) {
    const std::string good = report("50");
    const std::string big = good + std::string(4096 - good.size(), ' ');
    const std::string limit = good + std::string(4095 - good.size(), ' ');
    struct Row {
        const char* name;
        bool connects;
        bool firstOpens;
        std::optional<std::string> firstPage;
        bool secondOpens;
        std::optional<std::string> secondPage;
        WeatherOutcome::Kind kind;
        std::string_view error;
        std::vector<std::string> calls;
    };
    const std::vector<std::string> firstOnly = {"close", "connect weather1", "open weather1",
                                                "get weather1" + firstPath, "close"};
    const std::vector<std::string> both = {
        "close", "connect weather1", "open weather1", "get weather1" + firstPath,
        "close", "connect weather2", "open weather2", "get weather2" + secondPath,
        "close"};
    const std::vector<std::string> firstClosed = {
        "close",         "connect weather1",          "open weather1", "close", "connect weather2",
        "open weather2", "get weather2" + secondPath, "close"};
    using K = WeatherOutcome::Kind;
    const Row rows[] = {
        {"first host answers", true, true, good, true, report("1"), K::Stored, "", firstOnly},
        {"first host closed", true, false, {}, true, good, K::Stored, "", firstClosed},
        {"first page fails", true, true, std::nullopt, true, good, K::Stored, "", both},
        {"first page without root", true, true, "<html>busy</html>", true, good, K::Stored, "",
         both},
        {"a page at the limit", true, true, limit, true, {}, K::Stored, "", firstOnly},
        {"both closed",
         true,
         false,
         {},
         false,
         {},
         K::Failed,
         weather_text::serverError,
         {"close", "connect weather1", "open weather1", "close", "connect weather2",
          "open weather2", "close"}},
        {"both pages fail", true, true, {}, true, {}, K::Failed, weather_text::noWeather, both},
        {"no root anywhere", true, true, "<rot>", true, "Not Found", K::Failed,
         weather_text::noWeather, both},
        {"over the limit twice", true, true, big, true, big, K::Failed, weather_text::noWeather,
         both},
        {"first closed, second page fails",
         true,
         false,
         {},
         true,
         {},
         K::Failed,
         weather_text::noWeather,
         firstClosed},
        {"first page fails, second closed",
         true,
         true,
         {},
         false,
         {},
         K::Failed,
         weather_text::serverError,
         {"close", "connect weather1", "open weather1", "get weather1" + firstPath, "close",
          "connect weather2", "open weather2", "close"}},
        {"no connection",
         false,
         true,
         good,
         true,
         good,
         K::Failed,
         weather_text::unableToConnect,
         {"close", "connect weather1", "close"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::TempDir dir;
        const Paths paths(dir.path());
        test::writeFile(paths.dataFile("weather.xml"), report("32"));
        FakeTransport transport;
        transport.connects = row.connects;
        transport.opens = {{"weather1", row.firstOpens}, {"weather2", row.secondOpens}};
        transport.pages = {{"weather1", row.firstPage}, {"weather2", row.secondPage}};
        std::vector<std::string> texts;
        WeatherRun run;
        run.paths = paths;
        run.setup = chooseWeatherSetup("auto", "weather2", "weather1");
        run.units = {false, true};
        run.transport = &transport;
        run.status = [&](std::string_view text) { texts.emplace_back(text); };

        const WeatherOutcome outcome = runWeatherUpdate(run, {"London%2C+GB", {}});
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(outcome.error, row.error);
        EXPECT_EQ(transport.calls, row.calls);
        ASSERT_TRUE(outcome.report.has_value());
        const std::string stored = test::readFile(paths.dataFile("weather.xml"));
        if (row.kind == K::Stored) {
            // The body exactly as received, and the report read from it.
            EXPECT_EQ(stored, row.calls.size() == 5 ? *row.firstPage : *row.secondPage);
            EXPECT_EQ(outcome.report->temperature, "50 °F");
        } else {
            // The last good report stays, and is what the window shows again.
            EXPECT_EQ(stored, report("32"));
            EXPECT_EQ(outcome.report->temperature, "32 °F");
        }
        ASSERT_FALSE(texts.empty());
        EXPECT_EQ(texts.front(), weather_text::dialConnection);
        if (row.connects) {
            EXPECT_EQ(texts.at(1), weather_text::connecting);
        }
    }
}

TEST(WeatherWorker, AMissingHostIsAnAttemptThatCannotOpen) {
    struct Row {
        const char* updatePrimary;
        const char* updateFallback;
        WeatherOutcome::Kind kind;
        std::string_view error;
        std::vector<std::string> calls;
    };
    using K = WeatherOutcome::Kind;
    // clang-format off
    const Row rows[] = {
        {"",         "weather1", K::Failed, weather_text::serverError,
         {"close", "connect weather1", "open weather1", "get weather1" + firstPath, "close", "close"}},
        {"weather2", "",         K::Stored, "",
         {"close", "close", "connect weather2", "open weather2", "get weather2" + secondPath, "close"}},
        {"",         "",         K::Failed, weather_text::unableToConnect, {"close"}},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.updatePrimary) + "/" + row.updateFallback);
        test::TempDir dir;
        FakeTransport transport;
        transport.opens = {{"weather1", true}, {"weather2", true}};
        transport.pages = {{"weather1", "<html>busy</html>"}, {"weather2", report("50")}};
        WeatherRun run;
        run.paths = Paths(dir.path());
        fs::create_directories(run.paths.dataDir());
        run.setup = chooseWeatherSetup("hosts", row.updatePrimary, row.updateFallback);
        run.transport = &transport;
        const WeatherOutcome outcome = runWeatherUpdate(run, {"London%2C+GB", {}});
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(outcome.error, row.error);
        EXPECT_EQ(transport.calls, row.calls);
    }
}

TEST(WeatherWorker, ACacheThatCannotBeWrittenEndsQuietlyWithTheOldReport) {
    test::TempDir dir;
    const Paths paths(dir.path());
    FakeTransport transport;
    transport.opens = {{"weather1", true}};
    transport.pages = {{"weather1", report("77")}};
    WeatherRun run;
    run.paths = paths;
    run.setup = chooseWeatherSetup("hosts", "", "weather1");
    run.transport = &transport;
    std::vector<std::string> texts;
    run.status = [&](std::string_view text) { texts.emplace_back(text); };

    // No Data folder at all: nothing stored before, nothing now.
    WeatherOutcome outcome = runWeatherUpdate(run, {"Oslo%2C+NO", {}});
    EXPECT_EQ(outcome.kind, WeatherOutcome::Kind::NotStored);
    EXPECT_EQ(outcome.error, "");
    EXPECT_FALSE(outcome.report.has_value());
    const std::vector<std::string> said = {std::string(weather_text::dialConnection),
                                           std::string(weather_text::connecting),
                                           std::string(weather_text::gettingWeather)};
    EXPECT_EQ(texts, said);

    // A stored report, and a folder where the new file's temporary copy must go.
    test::writeFile(paths.dataFile("weather.xml"), report("14"));
    fs::create_directories(paths.dataFile("weather.xml.new"));
    outcome = runWeatherUpdate(run, {"Oslo%2C+NO", {}});
    EXPECT_EQ(outcome.kind, WeatherOutcome::Kind::NotStored);
    EXPECT_EQ(outcome.error, "");
    ASSERT_TRUE(outcome.report.has_value());
    EXPECT_EQ(outcome.report->temperature, "-10 °C");
    EXPECT_EQ(test::readFile(paths.dataFile("weather.xml")), report("14"));
}

TEST(WeatherWorker, AStopRequestEndsTheRunBeforeItConnects) {
    test::TempDir dir;
    FakeTransport transport;
    transport.opens = {{"weather1", true}};
    transport.pages = {{"weather1", report("77")}};
    WeatherRun run;
    run.paths = Paths(dir.path());
    run.setup = chooseWeatherSetup("hosts", "", "weather1");
    run.transport = &transport;
    std::stop_source stop;
    stop.request_stop();
    const WeatherOutcome outcome = runWeatherUpdate(run, {"Oslo%2C+NO", {}}, stop.get_token());
    EXPECT_EQ(outcome.kind, WeatherOutcome::Kind::Cancelled);
    EXPECT_EQ(transport.calls, (std::vector<std::string>{"close", "close"}));
    EXPECT_FALSE(fs::exists(run.paths.dataFile("weather.xml")));
}

ClockSource clockAt(const char* iso) {
    return ClockSource::fixedAt(parseIsoUtc(iso).value());
}

TEST(WeatherWorker, DirectModeStoresTheTranslatedReportOrSaysWhyNot) {
    UpstreamAnswer unreachable;
    unreachable.error = "Couldn't connect to server";
    struct Row {
        const char* name;
        bool connects;
        UpstreamAnswer answer;
        WeatherOutcome::Kind kind;
        std::string_view error;
        std::size_t requests;
    };
    using K = WeatherOutcome::Kind;
    const Row rows[] = {
        {"a forecast", true, test::answered(200, test::londonJson()), K::Stored, "", 1},
        {"not a forecast", true, test::answered(200, "<html/>"), K::Failed, weather_text::noWeather,
         1},
        {"refused", true, test::answered(403, ""), K::Failed, weather_text::serverError, 1},
        {"unreachable", true, unreachable, K::Failed, weather_text::serverError, 1},
        {"no connection", false, test::answered(200, test::londonJson()), K::Failed,
         weather_text::unableToConnect, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::TempDir dir;
        const Paths paths(dir.path());
        test::writeFile(paths.dataFile("weather.xml"), report("32"));
        FakeTransport transport;
        transport.connects = row.connects;
        test::WeatherFakeUpstream upstream;
        upstream.answers = {row.answer};
        MetNoSettings settings;
        settings.contact = "ops@example.org";
        settings.cacheFolder = paths.dataDir();
        MetNoReportSource source(settings, upstream, clockAt("2024-06-03T10:00:00Z"));
        WeatherRun run;
        run.paths = paths;
        run.setup = chooseWeatherSetup("auto", "", "");
        run.units = {true, true};
        run.transport = &transport;
        run.direct = &source;
        WeatherJob job;
        job.queryKey = "London%2C+GB";
        job.place.heading = "London, United Kingdom";
        job.place.latitude = 51.51;
        job.place.longitude = -0.13;

        const WeatherOutcome outcome = runWeatherUpdate(run, job);
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(outcome.error, row.error);
        ASSERT_EQ(upstream.requests.size(), row.requests);
        EXPECT_EQ(std::count(transport.calls.begin(), transport.calls.end(), "connect api.met.no"),
                  1);
        ASSERT_TRUE(outcome.report.has_value());
        if (row.kind == K::Stored) {
            EXPECT_EQ(outcome.report->heading, "London, United Kingdom");
            EXPECT_EQ(outcome.report->temperature, "15 °C");
            EXPECT_EQ(outcome.report->barometer, "1013 mb");
        } else {
            EXPECT_EQ(outcome.report->temperature, "0 °C");
        }
    }
}

TEST(WeatherSettingsUse, TheSelectedSlotsCityAndTheTwoFlags) {
    test::TempDir dir;
    DstRuleList rules;
    loadDstRules(test::copyShippedWorld(dir.path()), rules);
    Settings settings;
    EXPECT_EQ(weatherUnitsOf(settings).celsius, true); // a fresh start: °C and mbar
    EXPECT_EQ(weatherUnitsOf(settings).millibar, true);
    setWeatherUnits(settings, {false, true});
    EXPECT_EQ(settings.useCelsius, 0);
    EXPECT_EQ(settings.useMillibar, 1);

    settings.slots[2].cityName = u"Oslo";
    settings.slots[2].countryName = u"Norway";
    settings.slots[2].weatherQuery = u"Oslo%2C+NO";
    settings.slots[2].latitude = 59.91f;
    settings.slots[2].longitude = 10.75f;
    settings.slots[2].timeZoneIndex = 110; // UTC+1
    settings.slots[2].dstRuleIndex = 3;    // the European rule
    for (const auto& [selected, city] : {std::pair{2, "Oslo"}, {0, "London"}, {7, "London"}}) {
        settings.selectedSlot = selected;
        EXPECT_EQ(weatherSlotOf(settings).cityName, toUtf16(city)) << selected;
    }
    settings.selectedSlot = 2;
    const WeatherJob oslo = weatherJobFor(weatherSlotOf(settings), rules);
    EXPECT_EQ(oslo.queryKey, "Oslo%2C+NO");
    EXPECT_EQ(oslo.place.heading, "Oslo, Norway");
    EXPECT_NEAR(oslo.place.latitude, 59.91, 1e-5);
    const auto utc = [](const char* iso) { return unixFromSystemTime(parseIsoUtc(iso).value()); };
    EXPECT_EQ(oslo.place.utcOffsetMinutes(utc("2024-06-03T10:00:00Z")), 120);
    EXPECT_EQ(oslo.place.utcOffsetMinutes(utc("2024-01-15T10:00:00Z")), 60);
    const WeatherJob london = weatherJobFor(settings.slots[0], rules);
    EXPECT_EQ(london.queryKey, "London%2C+GB");
    EXPECT_EQ(london.place.heading, "London, United Kingdom");
    EXPECT_EQ(london.place.utcOffsetMinutes(utc("2024-06-03T10:00:00Z")), 60);
    EXPECT_EQ(london.place.utcOffsetMinutes(utc("2024-12-03T10:00:00Z")), 0);

    rememberWeatherLocation(settings, weatherSlotOf(settings));
    EXPECT_EQ(settings.weatherQuery, u"Oslo%2C+NO");
    EXPECT_EQ(settings.weatherCity, u"Oslo");
    EXPECT_EQ(settings.weatherCountry, u"Norway");
}

} // namespace
} // namespace zonara

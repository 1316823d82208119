// Weather updates against real servers on 127.0.0.1: the update host (nginx
// with the gateway behind fcgiwrap) whose provider is a local server that
// serves forecasts written for the test, a plain server for answers nginx
// would not give, and the provider asked directly.

#include "net/WeatherService.h"

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "WeatherHttpStub.h"
#include "WeatherMetJson.h"
#include "core/SystemTime.h"
#include "net/WeatherTexts.h"
#include "support/LocalHttpServer.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;
using Kind = WeatherOutcome::Kind;

const std::string stored = R"xml(<?xml version="1.0"?>
<root><city hdate="Oslo, Norway" date="Sun 2 Jun 2024 08:00"/><now icon="snow.gif" temp="23"/></root>
)xml";

const ClockSource atTen = ClockSource::fixedAt(*parseIsoUtc("2024-06-03T10:00:00Z"));

// MET Norway's service as the test writes it: London's forecast for every
// place but Paris, where it fails.
test::StubResponse provider(const test::StubRequest& request) {
    test::StubResponse response;
    if (request.target.find("lat=48.85") != std::string::npos) {
        response.status = 500;
        response.body = "overloaded";
        return response;
    }
    response.headers = {{"Content-Type", "application/json"},
                        {"Expires", "Mon, 03 Jun 2024 10:30:00 GMT"}};
    response.body = test::londonJson();
    return response;
}

// A client root with a stored report, and the service for two update hosts.
struct Client {
    test::TempDir root;
    Paths paths{root.path()};
    WeatherService service;
    std::vector<std::string> said;

    Client(std::uint16_t port, const std::string& updatePrimary,
           const std::string& updateFallback) {
        test::writeFile(paths.dataFile("weather.xml"), stored);
        Config config;
        config.network.httpPort = port;
        config.update = {updatePrimary, updateFallback};
        config.weather.source = WeatherSource::Hosts;
        service = weatherServiceFor(paths, atTen, config);
    }

    WeatherOutcome run(const std::string& key, std::stop_token stop = {}) {
        WeatherJob job;
        job.queryKey = key;
        return updateWeather(
            service, job, {true, true}, [this](std::string_view text) { said.emplace_back(text); },
            stop);
    }
    std::string heading() const {
        const auto report = loadWeatherReport(paths.dataFile("weather.xml"), {true, true});
        return report && report->heading ? *report->heading : "";
    }
};

std::size_t count(const std::string& text, std::string_view part) {
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}

TEST(WeatherOverTheUpdateHost, TheGatewayBehindNginxAndEachWayAnUpdateFails) {
    test::WeatherHttpStub met(provider);
    const std::string metUrl = "http://127.0.0.1:" + std::to_string(met.port()) +
                               "/weatherapi/locationforecast/2.0/compact";
    test::UpdateHost host(test::sourceDir() / "data", {}, ZONARA_WEATHER_GATEWAY,
                          {"ZONARA_METNO_URL=" + metUrl, "ZONARA_CONTACT=ops@example.org",
                           "ZONARA_AT=2024-06-03T10:00:00Z"});
    ASSERT_TRUE(host.ok()) << host.error();

    // Nothing listens on 127.0.0.2 and 127.0.0.3: nginx has 127.0.0.1 only.
    struct Row {
        const char* name;
        const char* updatePrimary; // the weather service asks the update's fallback first
        const char* updateFallback;
        const char* key;
        bool blockCache;
        Kind kind;
        std::string_view error;
        const char* heading;         // of the report stored after the run
        std::size_t plAsks, cgiAsks; // what nginx was asked for
        std::size_t providerAsks;    // what reached the provider, in all
    };
    const auto none = weather_text::noWeather;
    // clang-format off
    const Row rows[] = {
        {"first host answers",  "127.0.0.3", "127.0.0.1", "London%2C+GB",   false, Kind::Stored,    "",   "London, United Kingdom", 1, 0, 1},
        {"first host failing",  "127.0.0.1", "127.0.0.2", "london%2c+gb",   false, Kind::Stored,    "",   "London, United Kingdom", 0, 1, 1},
        // nginx keeps the gateway's answer: London again costs no request.
        {"asked again",         "127.0.0.3", "127.0.0.1", "London%2C+GB",   false, Kind::Stored,    "",   "London, United Kingdom", 1, 0, 1},
        {"both failing",        "127.0.0.2", "127.0.0.3", "London%2C+GB",   false, Kind::Failed,    none, "Oslo, Norway",           0, 0, 1},
        {"an unknown city",     "127.0.0.1", "127.0.0.1", "Atlantis%2C+XX", false, Kind::Failed,    none, "Oslo, Norway",           1, 1, 1},
        {"the provider failing","127.0.0.1", "127.0.0.1", "Paris%2C+FR",    false, Kind::Failed,    none, "Oslo, Norway",           1, 1, 3},
        {"an unwritable cache", "127.0.0.1", "127.0.0.1", "London%2C+GB",   true,  Kind::NotStored, "",   "Oslo, Norway",           1, 0, 3},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string before = host.accessLog();
        Client client(host.port(), row.updatePrimary, row.updateFallback);
        if (row.blockCache)
            fs::create_directories(client.paths.dataFile("weather.xml.new"));
        const WeatherOutcome outcome = client.run(row.key);
        EXPECT_EQ(outcome.kind, row.kind) << host.errorLog();
        EXPECT_EQ(outcome.error, row.error);
        EXPECT_EQ(client.heading(), row.heading);
        ASSERT_TRUE(outcome.report.has_value());
        EXPECT_EQ(outcome.report->heading, row.heading);
        // nginx writes a request's log line after its answer went out: wait
        // (boundedly) until the lines expected are there, then compare.
        std::string asked;
        for (int i = 0; i < 200; ++i) {
            asked = host.accessLog().substr(before.size());
            if (count(asked, "\n") >= row.plAsks + row.cgiAsks)
                break;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_EQ(
            count(asked, "/cgi-bin/hamweather/hw3.pl?config=&maxdays=4&forecast=zandh&pands="),
            row.plAsks)
            << asked;
        EXPECT_EQ(
            count(asked, "/cgi-bin/hamweather/hw3.cgi?config=&maxdays=4&forecast=zandh&pands="),
            row.cgiAsks)
            << asked;
        EXPECT_EQ(met.requests().size(), row.providerAsks);
        EXPECT_EQ(client.said.front(), weather_text::dialConnection);
    }
    // The gateway named the program and the host's contact to the provider.
    ASSERT_FALSE(met.requests().empty());
    EXPECT_EQ(met.requests().front().headers.at("user-agent"),
              "zonara-weather-gateway/0.1 ops@example.org");
}

TEST(WeatherOverTheUpdateHost, AnAnswerOverTheReportLimitCountsAsNoReport) {
    const std::string good = R"xml(<?xml version="1.0"?>
<root><city hdate="London, United Kingdom"/></root>
)xml";
    const std::string padded = good + std::string(4095 - good.size(), ' ');
    const std::string over = good + std::string(5000, ' ');
    struct Row {
        const char* name;
        std::string first, second; // the bodies of hw3.pl and hw3.cgi
        Kind kind;
        const char* heading;
    };
    const Row rows[] = {
        {"first over the limit", over, good, Kind::Stored, "London, United Kingdom"},
        {"first at the limit", padded, "", Kind::Stored, "London, United Kingdom"},
        {"both over", over, over, Kind::Failed, "Oslo, Norway"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::WeatherHttpStub server([&](const test::StubRequest& request) {
            test::StubResponse response;
            response.body =
                request.target.starts_with("/cgi-bin/hamweather/hw3.pl?") ? row.first : row.second;
            return response;
        });
        Client client(std::uint16_t(server.port()), "127.0.0.1", "127.0.0.1");
        const WeatherOutcome outcome = client.run("London%2C+GB");
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(client.heading(), row.heading);
        if (row.kind == Kind::Stored) {
            EXPECT_EQ(test::readFile(client.paths.dataFile("weather.xml")),
                      row.second.empty() ? row.first : row.second);
        } else {
            EXPECT_EQ(outcome.error, weather_text::noWeather);
        }
    }
}

TEST(WeatherDirect, TheProviderOnTheConfiguredPortWithItsAnswerKeptInData) {
    struct Row {
        const char* name;
        bool offline;
        bool stopFirst;
        Kind kind;
        std::string_view error;
        std::size_t providerAsks;
        const char* heading;
    };
    const Row rows[] = {
        {"a forecast", false, false, Kind::Stored, "", 1, "London, United Kingdom"},
        {"offline", true, false, Kind::Failed, weather_text::unableToConnect, 0, "Oslo, Norway"},
        {"stopped", false, true, Kind::Cancelled, "", 0, "Oslo, Norway"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::WeatherHttpStub met(provider);
        Client client(std::uint16_t(met.port()), "", "");
        Config config;
        config.network.offline = row.offline;
        config.network.httpPort = std::uint16_t(met.port());
        config.weather.contact = "me@example.org";
        client.service = weatherServiceFor(client.paths, atTen, config);
        // The URL's own port is not the one used.
        client.service.metnoUrl = "http://127.0.0.1:1/weatherapi/locationforecast/2.0/compact";
        ASSERT_EQ(client.service.setup.mode, WeatherMode::Direct);

        WeatherJob job;
        job.queryKey = "London%2C+GB";
        job.place.heading = "London, United Kingdom";
        job.place.latitude = 51.51;
        job.place.longitude = -0.13;
        std::stop_source stop;
        if (row.stopFirst)
            stop.request_stop();
        const WeatherOutcome outcome =
            updateWeather(client.service, job, {true, true}, {}, stop.get_token());
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(outcome.error, row.error);
        EXPECT_EQ(client.heading(), row.heading);
        ASSERT_EQ(met.requests().size(), row.providerAsks);
        if (row.providerAsks > 0) {
            EXPECT_EQ(met.requests().front().target,
                      "/weatherapi/locationforecast/2.0/compact?lat=51.51&lon=-0.13");
            EXPECT_EQ(met.requests().front().headers.at("user-agent"), "zonara/0.1 me@example.org");
            EXPECT_TRUE(fs::exists(client.paths.dataFile("metno-51.51_-0.13.cache")));
        }
    }
}

TEST(WeatherStop, AStopEndsATransferInProgressInEitherMode) {
    for (const bool direct : {false, true}) {
        SCOPED_TRACE(direct ? "direct" : "hosts");
        // Both the provider and the host take the request and then say nothing.
        test::LocalHttpServer server;
        server.route("/weatherapi/locationforecast/2.0/compact", test::script({{"", "never"}}));
        server.route("/cgi-bin/hamweather/hw3.pl", test::script({{"", "never"}}));
        Client client(server.port(), "127.0.0.1", "127.0.0.1");
        if (direct) {
            client.service.setup = chooseWeatherSetup("metno", "", "");
            client.service.metnoUrl = "http://127.0.0.1/weatherapi/locationforecast/2.0/compact";
        }
        WeatherOutcome outcome;
        std::jthread run([&](std::stop_token stop) { outcome = client.run("London%2C+GB", stop); });
        for (int i = 0; i < 2000 && server.requests().empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ASSERT_EQ(server.requests().size(), 1u);
        run.request_stop();
        run.join();
        EXPECT_EQ(outcome.kind, Kind::Cancelled);
        EXPECT_EQ(client.heading(), "Oslo, Norway");
    }
}

} // namespace
} // namespace zonara

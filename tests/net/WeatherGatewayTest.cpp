#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "WeatherHttpStub.h"
#include "WeatherMetJson.h"
#include "net/WeatherReport.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

#ifndef ZONARA_WEATHER_GATEWAY
#define ZONARA_WEATHER_GATEWAY ""
#endif

namespace zonara {
namespace {

namespace fs = std::filesystem;

struct CgiAnswer {
    int exitCode = -1;
    std::string head; // the header lines
    std::string body;
    std::string log;
};

// The update host's gateway with a fixed clock, its world files and cache in
// a temporary folder, and its provider on the local test server.
class GatewayRun {
  public:
    explicit GatewayRun(int providerPort) {
        world = test::copyShippedWorld(root.path()).dataDir();
        cache = root.path() / "cache";
        fs::create_directories(cache);
        providerUrl = "http://127.0.0.1:" + std::to_string(providerPort) +
                      "/weatherapi/locationforecast/2.0/compact";
    }

    CgiAnswer ask(const std::string& query, const std::string& at = "2024-06-03T10:00:00Z") {
        const test::StubProcessResult result = test::runWeatherProcess(
            ZONARA_WEATHER_GATEWAY,
            {"GATEWAY_INTERFACE=CGI/1.1", "REQUEST_METHOD=GET", "QUERY_STRING=" + query,
             "ZONARA_WORLD=" + world.string(), "ZONARA_METNO_URL=" + providerUrl,
             "ZONARA_CONTACT=ops@example.org", "ZONARA_CACHE=" + cache.string(),
             "ZONARA_AT=" + at});
        CgiAnswer answer;
        answer.exitCode = result.exitCode;
        answer.log = result.errors;
        const std::size_t end = result.output.find("\r\n\r\n");
        answer.head = result.output.substr(0, end);
        if (end != std::string::npos)
            answer.body = result.output.substr(end + 4);
        return answer;
    }

    test::TempDir root;
    fs::path world;
    fs::path cache;
    std::string providerUrl;
};

std::string londonQuery(const std::string& key) {
    return "config=&maxdays=4&forecast=zandh&pands=" + key;
}

TEST(WeatherGatewayProgram, AnswersTheWeatherPathsFromTheProvider) {
    ASSERT_TRUE(fs::exists(ZONARA_WEATHER_GATEWAY)) << "build zonara-weather-gateway first";
    const std::string json = test::londonJson();
    test::WeatherHttpStub provider([&](const test::StubRequest& request) {
        test::StubResponse response;
        if (request.target.find("lat=48.85") != std::string::npos) { // Paris: a broken provider
            response.status = 500;
            response.body = "oops";
            return response;
        }
        response.headers = {{"Content-Type", "application/json"},
                            {"Expires", "Mon, 03 Jun 2024 10:30:00 GMT"},
                            {"Last-Modified", "Mon, 03 Jun 2024 09:31:12 GMT"}};
        response.body = json;
        return response;
    });
    GatewayRun gateway(provider.port());

    // A city of the world files: the report, with the provider's expiry for nginx.
    const CgiAnswer london = gateway.ask(londonQuery("London%2C+GB"));
    EXPECT_EQ(london.exitCode, 0);
    EXPECT_NE(london.head.find("Status: 200 OK"), std::string::npos) << london.head;
    EXPECT_NE(london.head.find("Content-Type: text/xml; charset=UTF-8"), std::string::npos);
    EXPECT_NE(london.head.find("Expires: Mon, 03 Jun 2024 10:30:00 GMT"), std::string::npos);
    EXPECT_NE(london.body.find("<root>"), std::string::npos);
    EXPECT_LT(london.body.size(), 4095u);
    ASSERT_EQ(provider.requests().size(), 1u);
    const test::StubRequest asked = provider.requests().front();
    EXPECT_EQ(asked.target, "/weatherapi/locationforecast/2.0/compact?lat=51.51&lon=-0.13");
    EXPECT_EQ(asked.headers.at("user-agent"), "zonara-weather-gateway/0.1 ops@example.org");

    test::writeFile(gateway.root.path() / "weather.xml", london.body);
    const auto report = loadWeatherReport(gateway.root.path() / "weather.xml", {false, false});
    ASSERT_TRUE(report.has_value());
    // London's own zone and daylight-saving rule put it at UTC+1 in June.
    EXPECT_EQ(report->heading, "London, United Kingdom");
    EXPECT_EQ(report->date, "Mon 3 Jun 2024 10:31");
    EXPECT_EQ(report->temperature, "59 °F");
    EXPECT_EQ(report->barometer, "29.92 in");
    ASSERT_EQ(report->forecast.size(), 8u);
    EXPECT_EQ(report->forecast[0].name, "MON");
    EXPECT_EQ(report->forecast[5].line, "Day : High()  Low(37 °F)");

    // The same city again, its key in other case, before the expiry: from the cache.
    const CgiAnswer again = gateway.ask(londonQuery("london%2c+gb"), "2024-06-03T10:20:00Z");
    EXPECT_NE(again.head.find("Status: 200 OK"), std::string::npos);
    EXPECT_NE(again.body.find("<root>"), std::string::npos);
    EXPECT_EQ(provider.requests().size(), 1u);
    // After it, asked again on the chance that it changed.
    gateway.ask(londonQuery("London%2C+GB"), "2024-06-03T10:40:00Z");
    ASSERT_EQ(provider.requests().size(), 2u);
    EXPECT_EQ(provider.requests().back().headers.at("if-modified-since"),
              "Mon, 03 Jun 2024 09:31:12 GMT");

    // Pages without a report: the client then tries its other host.
    struct Row {
        const char* query;
        const char* status;
    };
    const Row failures[] = {
        {"config=&maxdays=4&forecast=zandh&pands=Atlantis%2C+XX", "Status: 404"},
        {"config=&maxdays=4&forecast=zandh&pands=", "Status: 400"},
        {"config=&maxdays=4", "Status: 400"},
        {"config=&maxdays=4&forecast=zandh&pands=Paris%2C+FR", "Status: 502"},
    };
    for (const Row& row : failures) {
        const CgiAnswer answer = gateway.ask(row.query);
        EXPECT_EQ(answer.exitCode, 0) << row.query;
        EXPECT_NE(answer.head.find(row.status), std::string::npos) << row.query << answer.head;
        EXPECT_NE(answer.head.find("Cache-Control: no-store"), std::string::npos) << row.query;
        EXPECT_EQ(answer.body.find("<root>"), std::string::npos) << row.query;
    }
    EXPECT_EQ(provider.requests().size(), 3u); // only Paris reached the provider
    EXPECT_NE(gateway.ask(failures[3].query).log.find("Paris, France: HTTP 500"),
              std::string::npos);
}

TEST(WeatherGatewayProgram, ACacheThatCannotBeWrittenStillAnswers) {
    ASSERT_TRUE(fs::exists(ZONARA_WEATHER_GATEWAY)) << "build zonara-weather-gateway first";
    const std::string json = test::londonJson();
    test::WeatherHttpStub provider([&](const test::StubRequest&) {
        return test::StubResponse{200, {{"Expires", "Mon, 03 Jun 2024 10:30:00 GMT"}}, json};
    });
    GatewayRun gateway(provider.port());
    fs::remove_all(gateway.cache);
    test::writeFile(gateway.cache, "a file, not a folder");
    for (int round = 1; round <= 2; ++round) {
        const CgiAnswer answer = gateway.ask(londonQuery("London%2C+GB"));
        EXPECT_NE(answer.head.find("Status: 200 OK"), std::string::npos);
        EXPECT_NE(answer.body.find("<root>"), std::string::npos);
        EXPECT_EQ(provider.requests().size(), std::size_t(round));
    }
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include "core/Settings.h"
#include "support/CommandRunner.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::runZonara;

const std::string london = R"xml(<?xml version="1.0"?>
<root>
<city hdate="London, United Kingdom" date="Wed 1 Jul 2026 12:00"/>
<now icon="pcloudy.gif" temp="59" humd="72%" winds="SW 9 mph" barom="30.01 in" baromb="1016 mb" dewp="50"/>
<forcast>
<item day="WEDNESSDAY" icon="sunny.gif" dayh="68" dayl="-1000"/>
<item day="WEDNESSDAY NIGHT" icon="tstormn.gif" dayh="-1000" dayl="41"/>
</forcast>
<credit text="Data from MET Norway"/>
</root>
)xml";

const std::string oslo = R"xml(<?xml version="1.0"?>
<root><city hdate="Oslo, Norway"/><now icon="snow.gif" temp="23"/></root>
)xml";

// A root with the world files, a stored report and settings whose slot 1 is Oslo.
struct WeatherRoot {
    test::TempDir dir;
    Paths paths;
    std::string root;

    explicit WeatherRoot(bool celsius = true, bool millibar = true) {
        paths = test::writeWorld(dir.path(), {{"United Kingdom", {test::sampleCity("London")}},
                                              {"Norway", {test::sampleCity("Oslo")}}});
        test::writeRules(paths);
        test::writeFile(paths.dataFile("weather.xml"), london);
        Settings settings;
        settings.useCelsius = celsius ? 1 : 0;
        settings.useMillibar = millibar ? 1 : 0;
        settings.slots[1].cityName = u"Oslo";
        settings.slots[1].countryName = u"Norway";
        settings.slots[1].weatherQuery = u"Oslo%2C+NO";
        settings.Save(paths.dataFile("settings.dat"));
        root = dir.path().string();
    }
    Settings settings() const {
        Settings saved;
        saved.Load(paths.dataFile("settings.dat"));
        return saved;
    }
};

TEST(CmdWeather, PrintsTheStoredReportAsTheWindowShowsIt) {
    struct Row {
        std::vector<std::string> words;
        bool celsius, millibar;
        const char* out;
    };
    const Row rows[] = {
        {{"weather"},
         true,
         true,
         "City        London, United Kingdom\n"
         "Date        Wed 1 Jul 2026 12:00\n"
         "Conditions  Partly cloudy\n"
         "Temp.       15 °C\n"
         "Humidity    72%\n"
         "Wind Speed  SW 9 mph\n"
         "Barometer   1016 mb\n"
         "Dew Point   10 °C\n"
         "Source      Data from MET Norway\n"},
        {{"--tsv", "weather"},
         false,
         false,
         "City\tLondon, United Kingdom\nDate\tWed 1 Jul 2026 12:00\nConditions\tPartly cloudy\n"
         "Temp.\t59 °F\nHumidity\t72%\nWind Speed\tSW 9 mph\nBarometer\t30.01 in\n"
         "Dew Point\t50 °F\nSource\tData from MET Norway\n"},
        {{"weather", "--forecast"},
         true,
         true,
         "London, United Kingdom\n"
         "Wed 1 Jul 2026 12:00\n"
         "WED        Sunny          Day : High(20 °C)  Low()\n"
         "WED NIGHT  Thunder Storm  Day : High()  Low(5 °C)\n"
         "Data from MET Norway\n"},
        {{"--tsv", "weather", "--forecast"},
         false,
         true,
         "WED\tSunny\t68 °F\t\nWED NIGHT\tThunder Storm\t\t41 °F\n"},
    };
    for (const Row& row : rows) {
        WeatherRoot w(row.celsius, row.millibar);
        std::vector<std::string> words = {"--root", w.root};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const auto r = runZonara(words);
        EXPECT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(r.out, row.out);
        EXPECT_EQ(r.err, "");
    }

    // Nothing stored, and words the command does not take.
    struct Refusal {
        std::vector<std::string> words;
        const char* message;
    };
    const Refusal refusals[] = {
        {{}, "no weather report is stored yet; 'zonara weather --refresh' fetches one"},
        {{"--slot", "4"}, "--slot"},
        {{"London"}, "London"},
    };
    for (const Refusal& refusal : refusals) {
        WeatherRoot w;
        std::filesystem::remove(w.paths.dataFile("weather.xml"));
        std::vector<std::string> words = {"--root", w.root, "weather"};
        words.insert(words.end(), refusal.words.begin(), refusal.words.end());
        const auto r = runZonara(words);
        EXPECT_EQ(r.exitCode, 1);
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind("zonara weather: ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(refusal.message), std::string::npos) << r.err;
    }
}

TEST(CmdWeather, RefreshFetchesForTheSlotOrPrintsTheLastReportAndTheError) {
    struct Row {
        const char* name;
        bool answers;
        const char* network; // more [network] lines
        std::vector<std::string> words;
        int exitCode;
        const char* firstLine; // of the output
        const char* error;
        const char16_t* savedCity;
        const char* asked; // the key the host was asked for, if it was
    };
    const char* osloLine = "City        Oslo, Norway";
    const char* londonLine = "City        London, United Kingdom";
    // clang-format off
    const Row rows[] = {
        {"selected slot", true,  "",              {},              0, osloLine,   "",                                                u"Oslo",   "Oslo%2C+NO"},
        {"slot 0",        true,  "",              {"--slot", "0"}, 0, osloLine,   "",                                                u"London", "London%2C+GB"},
        {"no report",     false, "",              {},              1, londonLine, "zonara weather: No weather available for city\n", u"",       "Oslo%2C+NO"},
        {"offline",       true,  "offline=true\n", {},              1, londonLine, "zonara weather: Unable to Connect\n",             u"",       ""},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        WeatherRoot w;
        Settings selected = w.settings();
        selected.selectedSlot = 1;
        selected.Save(w.paths.dataFile("settings.dat"));
        test::LocalHttpServer host;
        if (row.answers)
            host.route("/cgi-bin/hamweather/hw3.pl", test::reply(200, oslo));
        test::writeFile(w.paths.root() / "zonara.ini",
                        "[network]\nhttp_port=" + std::to_string(host.port()) + "\n" + row.network +
                            "[update]\nprimary=127.0.0.1\nfallback=127.0.0.1\n");
        std::vector<std::string> words = {"--root", w.root, "weather", "--refresh"};
        words.insert(words.end(), row.words.begin(), row.words.end());
        const auto r = runZonara(words);
        EXPECT_EQ(r.exitCode, row.exitCode) << r.err;
        EXPECT_EQ(r.out.substr(0, r.out.find('\n')), row.firstLine) << r.out;
        // The first use of the world files says that it prepares them; then the error.
        EXPECT_TRUE(r.err.ends_with(row.error)) << r.err;
        EXPECT_EQ(r.err.find("zonara weather:") == std::string::npos, row.error[0] == '\0');
        EXPECT_EQ(w.settings().weatherCity, row.savedCity);
        const auto requests = host.requests();
        if (row.asked[0] != '\0') {
            ASSERT_FALSE(requests.empty());
            EXPECT_EQ(requests.front().target,
                      std::string("/cgi-bin/hamweather/hw3.pl?config=&maxdays=4&forecast=zandh&"
                                  "pands=") +
                          row.asked);
        } else {
            EXPECT_TRUE(requests.empty());
        }
    }
}

} // namespace
} // namespace zonara

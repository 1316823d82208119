#include <gtest/gtest.h>

#include "core/Settings.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::runZonara;

City southern(const std::string& name, int rule) {
    City city = test::sampleCity(name, 255, rule);
    city.longitude = 151.21f;
    city.latitude = -33.87f;
    city.airportCode = "SYD";
    city.countryDialCode = "61";
    city.areaDialCode = std::string("2"); // a move: GCC 12 warns wrongly on a one-letter copy
    city.stationCode = "YSSY";
    return city;
}

class CmdDetails : public ::testing::Test {
  protected:
    void SetUp() override {
        test::writeRules(test::writeWorld(
            dir.path(), {{"Australia", {southern("Sydney", 2), southern("Brisbane", 0)}},
                         {"United Kingdom", {test::sampleCity("London")}}}));
        // The first run prepares the new world files and says so on stderr.
        run({"cities"});
    }
    test::CommandResult run(std::vector<std::string> words) const {
        words.insert(words.begin(),
                     {"--root", dir.path().string(), "--at", "2026-07-01T12:00:00Z"});
        return runZonara(words);
    }
    test::TempDir dir;
};

TEST_F(CmdDetails, PrintsTheDialogsRowsWithItsLabels) {
    struct Row {
        std::vector<std::string> words;
        const char* out;
    };
    const Row rows[] = {
        {{"--tsv", "details", "london"},
         "Airport Code\tLHR\nICAO\tEGLC\nDial Prefix\t+44 20\nGMT offset\t00:00\nDST\t+01\n"
         "DST Starts\t3/29/2026 01:00\nDST Ends\t10/25/2026 02:00\nLongitude\t-0.06\n"
         "Latitude\t51.51\nSunrise\t04:46\nSunset\t21:20\n"},
        // A southern rule ends in the following year; the clocks go back at
        // 03:00 daylight time.
        {{"--tsv", "details", "Sydney", "--country", "australia"},
         "Airport Code\tSYD\nICAO\tYSSY\nDial Prefix\t+61 2\nGMT offset\t+10:00\nDST\t00\n"
         "DST Starts\t10/4/2026 02:00\nDST Ends\t4/4/2027 03:00\nLongitude\t151.21\n"
         "Latitude\t-33.87\nSunrise\t07:00\nSunset\t16:56\n"},
        // No rule: no dates.
        {{"--tsv", "details", "bris"},
         "Airport Code\tSYD\nICAO\tYSSY\nDial Prefix\t+61 2\nGMT offset\t+10:00\nDST\tn\\a\n"
         "Longitude\t151.21\nLatitude\t-33.87\nSunrise\t07:00\nSunset\t16:56\n"},
        // For people: the name lines, then the labels in a column.
        {{"details", "London"},
         "London, United Kingdom\nAirport Code  LHR\nICAO          EGLC\nDial Prefix   +44 20\n"
         "GMT offset    00:00\nDST           +01\nDST Starts    3/29/2026 01:00\n"
         "DST Ends      10/25/2026 02:00\nLongitude     -0.06\nLatitude      51.51\n"
         "Sunrise       04:46\nSunset        21:20\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.words[1]);
        const auto r = run(row.words);
        EXPECT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(r.out, row.out);
        EXPECT_EQ(r.err, "");
    }
}

TEST_F(CmdDetails, WithoutACityShowsASlotWithTheAirportPickedForIt) {
    Settings settings;
    settings.selectedSlot = 2;
    settings.slots[2].cityName = u"Sydney";
    settings.slots[2].countryName = u"Australia";
    settings.slots[2].stationCode = u"YSBK"; // picked from the airport list
    settings.slots[1].stationCode = u"EGKK";
    ASSERT_TRUE(settings.Save(dir.path() / "Data" / "settings.dat"));
    struct Row {
        std::vector<std::string> words;
        const char* names;
        const char* icao;
    };
    const Row rows[] = {
        {{"details"}, "Sydney, Australia", "YSBK"},
        {{"details", "--slot", "1"}, "London, United Kingdom", "EGKK"},
        // A city by name shows the world files' code.
        {{"details", "Sydney"}, "Sydney, Australia", "YSSY"},
    };
    for (const Row& row : rows) {
        const auto r = run(row.words);
        EXPECT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(r.out.substr(0, r.out.find('\n')), row.names);
        EXPECT_NE(r.out.find(std::string("\nICAO          ") + row.icao + "\n"), std::string::npos)
            << r.out;
    }
}

TEST_F(CmdDetails, RefusesWhatItCannotShow) {
    struct Row {
        std::vector<std::string> words;
        const char* message;
    };
    const Row rows[] = {
        {{"details", "Paris"}, "no city named 'Paris'"},
        {{"details", "--country", "Australia"}, "which city in Australia?"},
        {{"details", "--slot", "4"}, "--slot"},
        {{"details", "London", "--bogus"}, "--bogus"},
    };
    for (const Row& row : rows) {
        const auto r = run(row.words);
        EXPECT_EQ(r.exitCode, 1) << row.message;
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind("zonara details: ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(row.message), std::string::npos) << r.err;
    }
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

test::CommandResult run(const std::vector<std::string>& argv) {
    return test::runZonara(argv);
}

City place(const std::string& name, float longitude, float latitude, int zone, int rule) {
    City city = test::sampleCity(name, zone, rule);
    city.longitude = longitude;
    city.latitude = latitude;
    return city;
}

class CmdSunTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const Paths paths = test::writeWorld(
            dir.path(), {{"United Kingdom", {place("London", -0.13f, 51.51f, 85, 1)}},
                         {"Norway", {place("Tromso", 18.95f, 69.65f, 110, 1)}},
                         {"Australia", {place("Sydney", 151.21f, -33.87f, 255, 2)}}});
        test::writeRules(paths);
    }
    std::string root() const { return dir.path().string(); }

    test::TempDir dir;
};

TEST_F(CmdSunTest, PrintsSunriseAndSunsetInUtAndLocalTime) {
    // London at midsummer: 03:42:55 and 20:21:28 UT, an hour later in summer time.
    test::CommandResult r =
        run({"--root", root(), "--tsv", "sun", "London", "--date", "2006-06-21"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "London\tUnited Kingdom\t2006-06-21\t03:42:55\t20:21:28\t04:42\t21:21\n");

    // Sydney's sunrise is on the previous UT evening; +10:00 and no summer time in June.
    r = run({"--root", root(), "--tsv", "sun", "Sydney", "--country", "Australia", "--date",
             "2006-06-21"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "Sydney\tAustralia\t2006-06-21\t20:59:48\t06:53:40\t06:59\t16:53\n");

    // Without --date the UTC date of --at counts; the readable form has a header.
    r = run({"--root", root(), "--at", "2006-12-21T23:59:00Z", "sun", "Tromso"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("Sunrise UT"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("2006-12-21"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Down all day"), std::string::npos) << r.out;
    r = run({"--root", root(), "--tsv", "sun", "Tromso", "--date=2006-06-21"});
    EXPECT_EQ(r.out,
              "Tromso\tNorway\t2006-06-21\tUp all day\tUp all day\tUp all day\tUp all day\n");
}

TEST_F(CmdSunTest, RejectsBadDatesAndUnknownCities) {
    test::CommandResult r = run({"--root", root(), "sun", "London", "--date", "2006-02-30"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("not a date"), std::string::npos) << r.err;
    r = run({"--root", root(), "sun", "Londn"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("no city named 'Londn'"), std::string::npos) << r.err;
    r = run({"--root", root(), "sun"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, "");
    r = run({"--root", root(), "sun", "London", "--country", "Norway"});
    EXPECT_EQ(r.exitCode, 1);
}

TEST_F(CmdSunTest, MoonGivesThePhaseOfTheDate) {
    test::CommandResult r = run({"--tsv", "moon", "--date", "2006-01-14"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "2006-01-14\t4\n");
    r = run({"--at", "2006-01-29T22:00:00Z", "moon"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("2006-01-29  0      New moon"), std::string::npos) << r.out;
    r = run({"moon", "--date", "yesterday"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("zonara moon:"), std::string::npos);
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::runZonara;

City place(const std::string& name, float longitude, float latitude, int zone) {
    City city = test::sampleCity(name, zone, 1);
    city.longitude = longitude;
    city.latitude = latitude;
    return city;
}

// The times themselves are pinned by the globe tests; here the command's
// columns, its local times with the city's rule, --date against --at, and errors.
TEST(CmdSun, PrintsSunriseAndSunsetInUtAndLocalTime) {
    test::TempDir dir;
    test::writeRules(
        test::writeWorld(dir.path(), {{"United Kingdom", {place("London", -0.13f, 51.51f, 85)}},
                                      {"Norway", {place("Tromso", 18.95f, 69.65f, 110)}}}));
    const std::string root = dir.path().string();
    // London at midsummer, an hour later in summer time.
    auto r = runZonara({"--root", root, "--tsv", "sun", "London", "--date", "2006-06-21"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "London\tUnited Kingdom\t2006-06-21\t03:42:55\t20:21:28\t04:42\t21:21\n");
    r = runZonara({"--root", root, "--tsv", "sun", "tromso", "--date=2006-06-21"});
    EXPECT_EQ(r.out,
              "Tromso\tNorway\t2006-06-21\tUp all day\tUp all day\tUp all day\tUp all day\n");
    // Without --date the UTC date of --at counts; the readable form has a header.
    r = runZonara({"--root", root, "--at", "2006-12-21T23:59:00Z", "sun", "Tromso"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    for (const char* part : {"Sunrise UT", "2006-12-21", "Down all day"})
        EXPECT_NE(r.out.find(part), std::string::npos) << r.out;

    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    // Finding the city is the shared finder's, tested with the time command.
    const Case cases[] = {{{"London", "--date", "2006-02-30"}, "--date wants a date as YYYY-MM-DD"},
                          {{"London", "--date"}, "--date needs a value"},
                          {{}, "which city?"},
                          {{"London", "Paris"}, "no city named 'London Paris'"}};
    for (const Case& c : cases) {
        std::vector<std::string> words{"--root", root, "sun"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        r = runZonara(words);
        EXPECT_EQ(r.exitCode, 1) << c.message;
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err.rfind("zonara sun: ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    }
}

TEST(CmdSun, MoonGivesThePhaseOfTheDate) {
    auto r = runZonara({"--tsv", "moon", "--date", "2006-01-14"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "2006-01-14\t4\n");
    r = runZonara({"--at", "2006-01-29T22:00:00Z", "moon"});
    EXPECT_NE(r.out.find("2006-01-29  0      New moon"), std::string::npos) << r.out;
    r = runZonara({"moon", "--date", "yesterday"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("zonara moon:"), std::string::npos);
}

} // namespace
} // namespace zonara

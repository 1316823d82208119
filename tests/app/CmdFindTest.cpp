#include <gtest/gtest.h>

#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::runZonara;
using test::sampleCity;

class CmdFindTest : public ::testing::Test {
  protected:
    void SetUp() override {
        test::writeWorld(dir.path(),
                         {{"Australia", {sampleCity("Sydney"), sampleCity("Melbourne")}},
                          {"Brazil", {sampleCity("São Paulo")}},
                          {"Canada", {sampleCity("Sydney"), sampleCity("North Sydney")}},
                          {"United States", {sampleCity("New York"), sampleCity("Yorktown")}},
                          {"United Kingdom", {sampleCity("York")}}});
    }
    std::string root() const { return dir.path().string(); }

    test::TempDir dir;
};

TEST_F(CmdFindTest, ListsMatchingCitiesStartingWithTheTextFirst) {
    test::CommandResult r = runZonara({"--root", root(), "--tsv", "find", "syd"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "Sydney\tAustralia\nSydney\tCanada\nNorth Sydney\tCanada\n");

    r = runZonara({"--root", root(), "--tsv", "find", "YORK", "--limit", "2"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "York\tUnited Kingdom\nYorktown\tUnited States\n");

    // Words make one text; accents and case do not count.
    r = runZonara({"--root", root(), "--tsv", "find", "new", "york"});
    EXPECT_EQ(r.out, "New York\tUnited States\n");
    r = runZonara({"--root", root(), "--tsv", "find", "SAO"});
    EXPECT_EQ(r.out, "São Paulo\tBrazil\n");

    // The readable form has a header and aligned columns.
    r = runZonara({"--root", root(), "find", "melb"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("City"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Melbourne"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Australia"), std::string::npos) << r.out;
}

TEST_F(CmdFindTest, FailsWithoutTextBadLimitOrMatch) {
    struct Case {
        std::vector<std::string> words;
        std::string message;
    };
    const std::vector<Case> cases = {
        {{"find"}, "give part of a city's name"},
        {{"find", "  "}, "give part of a city's name"},
        {{"find", "syd", "--limit", "0"}, "--limit takes a whole number"},
        {{"find", "syd", "--limit", "x2"}, "--limit takes a whole number"},
        {{"find", "atlantis"}, "no city name contains 'atlantis'"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> argv = {"--root", root()};
        argv.insert(argv.end(), c.words.begin(), c.words.end());
        const test::CommandResult r = runZonara(argv);
        EXPECT_EQ(r.exitCode, 1) << c.words.back();
        EXPECT_EQ(r.out, "") << c.words.back();
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    }
}

} // namespace
} // namespace zonara

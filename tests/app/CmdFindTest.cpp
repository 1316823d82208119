#include <gtest/gtest.h>

#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::sampleCity;

// The search order and folding are pinned by CityCatalogTest; here the command's
// columns, --limit, the words joined into one text and the errors.
TEST(CmdFind, ListsMatchingCitiesOrSaysWhy) {
    test::TempDir dir;
    test::writeWorld(dir.path(), {{"Australia", {sampleCity("Sydney"), sampleCity("Melbourne")}},
                                  {"Canada", {sampleCity("Sydney"), sampleCity("North Sydney")}},
                                  {"United States", {sampleCity("New York")}},
                                  {"United Kingdom", {sampleCity("York")}}});
    const std::string root = dir.path().string();
    struct Case {
        std::vector<std::string> words;
        int exitCode;
        const char* out; // the whole output for --tsv, else a part of it
        const char* err; // a part of it
    };
    const Case cases[] = {
        {{"--tsv", "find", "syd"},
         0,
         "Sydney\tAustralia\nSydney\tCanada\nNorth Sydney\tCanada\n",
         ""},
        {{"--tsv", "find", "syd", "--limit", "2"}, 0, "Sydney\tAustralia\nSydney\tCanada\n", ""},
        {{"--tsv", "find", "new", "york"}, 0, "New York\tUnited States\n", ""},
        {{"--tsv", "find", "NORTH-SYD"}, 0, "North Sydney\tCanada\n", ""},
        {{"find", "melb"}, 0, "City", ""},
        {{"find", "melb"}, 0, "Melbourne  Australia", ""},
        {{"find"}, 1, "", "give part of a city's name"},
        {{"find", "  "}, 1, "", "give part of a city's name"},
        {{"find", "-"}, 1, "", "give part of a city's name"},
        {{"find", "syd", "--limit", "0"}, 1, "", "--limit takes a whole number"},
        {{"find", "syd", "--limit", "x2"}, 1, "", "--limit takes a whole number"},
        {{"find", "atlantis"}, 1, "", "zonara find: no city name contains 'atlantis'"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> words{"--root", root};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const auto r = test::runZonara(words);
        EXPECT_EQ(r.exitCode, c.exitCode) << c.out << c.err;
        if (c.words.front() == "--tsv" || c.exitCode != 0)
            EXPECT_EQ(r.out, c.out);
        else
            EXPECT_NE(r.out.find(c.out), std::string::npos) << r.out;
        EXPECT_NE(r.err.find(c.err), std::string::npos) << r.err;
    }
}

} // namespace
} // namespace zonara

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/CommandRunner.h"

namespace zonara {
namespace {

TEST(CmdConvert, PrintsTheDisplayAfterConversionOrNotApplicable) {
    struct Case {
        std::vector<std::string> words;
        int exitCode;
        const char* out;
        const char* err; // a part of it
    };
    const Case cases[] = {
        {{"212", "F", "C"}, 0, "100.00000762939453\n", ""},
        {{"+3.7", "MILES", "km"}, 0, "5.95455807673931\n", ""},
        {{"-1e3", "g", "kg"}, 0, "-1\n", ""},
        {{"1", "US gallons", "l"}, 0, "3.78514\n", ""},
        {{"2", "m/s", "km/h", "--category", "speed"}, 0, "7.2\n", ""},
        {{"5", "g", "t"}, 1, "n\\a\n", "Weight has no factor from grams (g) to metric tonnes (t)"},
        // Words that name nothing.
        {{"1.5x", "km", "miles"}, 1, "", "'1.5x' is not a number"},
        {{"1", "km"}, 1, "", "give VALUE FROM TO"},
        {{"1", "gal", "l"}, 1, "", "'gal' could be: gallons (gal), US gallons (gal)"},
        {{"1", "km", "miles", "--category", "Length"}, 1, "", "unknown unit 'km'"},
    };
    for (const Case& c : cases) {
        std::vector<std::string> words{"convert"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const auto r = test::runZonara(words);
        SCOPED_TRACE(c.words[0] + " " + c.words[1]);
        EXPECT_EQ(r.exitCode, c.exitCode);
        EXPECT_EQ(r.out, c.out);
        EXPECT_NE(r.err.find(c.err), std::string::npos) << r.err;
        if (c.exitCode == 0) {
            EXPECT_EQ(r.err, "");
        }
    }
}

TEST(CmdConvert, ListsEveryCategoryWithItsUnits) {
    auto r = test::runZonara({"--tsv", "convert", "--list"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    std::istringstream lines(r.out);
    std::vector<std::string> rows;
    for (std::string line; std::getline(lines, line);)
        rows.push_back(line);
    ASSERT_EQ(rows.size(), 45u);
    EXPECT_EQ(rows.front(), "Distance\tkilometers (km)\t(km)");
    EXPECT_EQ(rows[13], "Area\tacres\tacres");
    EXPECT_EQ(rows.back(), "Temperature\tdegress fahrenheit (°F)\t(°F)");

    r = test::runZonara({"convert", "--list"});
    EXPECT_TRUE(r.out.starts_with("Category ")) << r.out;
    EXPECT_NE(r.out.find("Pressure     pounds per square inch (psi)  (psi)\n"), std::string::npos);
    r = test::runZonara({"convert", "--list", "km"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("--list takes nothing else"), std::string::npos);
}

} // namespace
} // namespace zonara

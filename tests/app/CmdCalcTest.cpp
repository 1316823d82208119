#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/CommandRunner.h"

namespace zonara {
namespace {

std::vector<std::string> words(std::vector<std::string> keys, std::vector<std::string> before) {
    before.insert(before.end(), keys.begin(), keys.end());
    return before;
}

TEST(CmdCalc, PressesTheKeysAndPrintsTheDisplay) {
    struct Case {
        std::vector<std::string> keys;
        const char* out;
    };
    // Every spelling of a key, and the pad's own chaining.
    const Case cases[] = {
        {{"2", "+", "3", "x"}, "6\n"},
        {{"8", "÷", "2", "-", "1", "="}, "5\n"},  // 8 ÷ 2 - is 8 - 2
        {{"8", "/", "2", "X", "3", "="}, "48\n"}, // 8 / 2 X is 2 x 8
        {{"1", "2", "back", "«", "."}, "0.\n"},
        {{"2", "SQRT", "1/x", "+/-"}, "0\n"},
        {{"5", "M+", "C", "mr", "+", "MR", "=", "MC", "MR"}, "10\n"},
    };
    for (const Case& c : cases) {
        const auto r = test::runZonara(words(c.keys, {"calc"}));
        EXPECT_EQ(r.exitCode, 0) << r.err;
        EXPECT_EQ(r.out, c.out) << c.keys.size();
    }
}

TEST(CmdCalc, TraceShowsEveryKeyAndBadKeysPressNothing) {
    auto r = test::runZonara({"--tsv", "calc", "--trace", "1", "2", "+", "3", "x", "back"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "1\t1\n2\t12\n+\t12\n3\t3\nx\t36\nback\t3\n");
    r = test::runZonara({"calc", "2", "--trace"});
    EXPECT_EQ(r.out, "Key  Display\n2    2\n");

    struct Bad {
        std::vector<std::string> words;
        const char* err;
    };
    const Bad bad[] = {
        {{"calc", "2", "%", "3"}, "unknown key '%'"}, // nothing pressed, nothing printed
        {{"calc", "CON"}, "unknown key 'CON'"},
        {{"calc"}, "no keys"},
    };
    for (const Bad& b : bad) {
        r = test::runZonara(b.words);
        EXPECT_EQ(r.exitCode, 1);
        EXPECT_EQ(r.out, "");
        EXPECT_NE(r.err.find(b.err), std::string::npos) << r.err;
    }
}

} // namespace
} // namespace zonara

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "support/CommandRunner.h"

namespace zonara {
namespace {

struct Session {
    int exitCode = 0;
    std::vector<std::string> lines;
    std::string err;
};

Session stopwatch(const std::string& typed, std::vector<std::string> words = {"stopwatch"}) {
    std::istringstream in(typed);
    std::ostringstream out, err;
    Session run;
    run.exitCode = runCommandLine(words, CommandIo{out, err, false, &in});
    std::istringstream printed(out.str());
    for (std::string line; std::getline(printed, line);)
        run.lines.push_back(line);
    run.err = err.str();
    return run;
}

TEST(CmdStopwatch, ReadsLinesWhenTheInputIsNoTerminal) {
    // Enter, Enter, an unknown word, reset, q, and a line after the end.
    const Session r = stopwatch("\nstop\nx\nr\nq\n\n");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    ASSERT_EQ(r.lines.size(), 5u);
    EXPECT_EQ(r.lines[0], "00:00.00  stopped");
    EXPECT_EQ(r.lines[1], "00:00.00  running");
    // What passed between two lines is the machine's business; its form is ours.
    EXPECT_TRUE(std::regex_match(r.lines[2], std::regex(R"(\d\d:\d\d\.\d\d  stopped)")))
        << r.lines[2];
    EXPECT_EQ(r.lines[3], "00:00.00  stopped");
    EXPECT_EQ(r.lines[4], "00:00.00  stopped");
    EXPECT_NE(r.err.find("unknown 'x'"), std::string::npos) << r.err;

    // The end of the input ends it too; --tsv separates with a tab.
    const Session tsv = stopwatch("", {"--tsv", "stopwatch"});
    EXPECT_EQ(tsv.lines, std::vector<std::string>{"00:00.00\tstopped"});

    // Without any input to read there is nothing to run.
    const auto none = test::runZonara({"stopwatch"});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_NE(none.err.find("no input"), std::string::npos);
    EXPECT_EQ(stopwatch("", {"stopwatch", "now"}).exitCode, 1);
}

} // namespace
} // namespace zonara

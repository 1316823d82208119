#include "tools/StopwatchConsole.h"

#include <string>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(StopwatchConsole, KeysAndLinesToActions) {
    using enum ConsoleAction;
    const std::pair<char, ConsoleAction> keys[] = {
        {'\r', StartStop}, {'R', Reset}, {'q', Quit}, {'\x03', Quit}, {'\x04', Quit}, {'x', None},
    };
    for (const auto& [key, action] : keys)
        EXPECT_EQ(consoleActionForKey(key), action) << int(key);

    const std::pair<const char*, ConsoleAction> lines[] = {
        {"  \r", StartStop}, {"Stop", StartStop}, {" RESET ", Reset},
        {"q", Quit},         {"quit now", None},  {"rr", None},
    };
    for (const auto& [line, action] : lines)
        EXPECT_EQ(consoleActionForLine(line), action) << line;
}

TEST(StopwatchConsole, SessionOnTheTickCount) {
    using enum ConsoleAction;
    struct Step {
        ConsoleAction action; // None: a redraw tick
        std::uint32_t now;
        const char* line;
        bool goesOn = true;
    };
    const Step steps[] = {
        {None, 500, "00:00.00  stopped   Enter: start  r: reset  q: quit"},
        {StartStop, 1000, "00:00.00  running   Enter: stop   r: reset  q: quit"},
        {None, 1100, "00:00.10  running   Enter: stop   r: reset  q: quit"},
        // Stopping counts up to the key, not only to the last redraw.
        {StartStop, 13456, "00:12.45  stopped   Enter: start  r: reset  q: quit"},
        {None, 20000, "00:12.45  stopped   Enter: start  r: reset  q: quit"},
        {StartStop, 30000, "00:12.45  running   Enter: stop   r: reset  q: quit"},
        {None, 3617544, "01:00:00  running   Enter: stop   r: reset  q: quit"},
        // Reset keeps a running watch running from the key on.
        {Reset, 3700000, "00:00.00  running   Enter: stop   r: reset  q: quit"},
        {None, 3700990, "00:00.99  running   Enter: stop   r: reset  q: quit"},
        {Quit, 3701500, "00:01.50  running   Enter: stop   r: reset  q: quit", false},
    };
    StopwatchConsole console;
    for (const Step& s : steps) {
        SCOPED_TRACE(s.now);
        const bool goesOn =
            s.action == None ? (console.tick(s.now), true) : console.apply(s.action, s.now);
        EXPECT_EQ(goesOn, s.goesOn);
        EXPECT_EQ(console.line(), s.line);
    }
}

} // namespace
} // namespace zonara

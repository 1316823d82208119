#include <iostream>
#include <istream>
#include <ostream>
#include <string>

#include <unistd.h>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/RawTerminal.h"
#include "tools/StopwatchConsole.h"

namespace zonara {

namespace {

std::uint32_t tickCount(const CommandContext& ctx) {
    // The watch counts on 32 bits, wrap included, as the window's does.
    return std::uint32_t(ctx.clock.tickCount());
}

// Key by key on a terminal, the line redrawn in place ten times a second.
void runOnTerminal(CommandContext& ctx, RawTerminal& terminal) {
    StopwatchConsole console;
    bool goesOn = true;
    while (goesOn) {
        ctx.out << '\r' << console.line() << std::flush;
        const std::optional<std::string> keys = terminal.readKeys(Stopwatch::tickIntervalMs);
        if (!keys)
            break;
        for (const char key : *keys)
            if (goesOn)
                goesOn = console.apply(consoleActionForKey(key), tickCount(ctx));
        console.tick(tickCount(ctx));
    }
    ctx.out << '\r' << console.line() << "\n";
}

// Typed lines from a pipe or a file: one line of time and state after each.
void runOnLines(CommandContext& ctx, std::istream& in) {
    StopwatchConsole console;
    const auto show = [&] {
        const std::string time = console.stopwatch().text();
        ctx.out << time << (ctx.tsv() ? "\t" : "  ") << console.state() << "\n";
    };
    show();
    std::string line;
    while (std::getline(in, line)) {
        const ConsoleAction action = consoleActionForLine(line);
        if (action == ConsoleAction::None) {
            ctx.warn("unknown '" + line + "': an empty line starts and stops, r resets, q quits");
            continue;
        }
        const bool goesOn = console.apply(action, tickCount(ctx));
        show();
        if (!goesOn)
            break;
    }
}

Outcome runStopwatch(CommandContext& ctx, Args& args) {
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    if (ctx.in == nullptr) {
        return fail("no input to read the keys from");
    }
    if (ctx.in == &std::cin) {
        RawTerminal terminal(STDIN_FILENO);
        if (terminal.active()) {
            runOnTerminal(ctx, terminal);
            return {};
        }
    }
    runOnLines(ctx, *ctx.in);
    return {};
}

} // namespace

extern const Command stopwatchCommand{
    .name = "stopwatch",
    .usage = "",
    .summary = "a stopwatch in the terminal",
    .help = "Runs a stopwatch on one line of the terminal, redrawn ten times a second:\n"
            "Enter starts and stops it (starting again goes on from the time shown),\n"
            "r resets it (a running watch keeps running from zero), q quits. Below an\n"
            "hour it shows MM:SS.hh, from an hour on HH:MM:SS.\n"
            "When the input is not a terminal it reads lines instead: an empty line (or\n"
            "'start', 'stop') starts and stops, 'r' resets, 'q' quits, and the end of\n"
            "the input ends it; after each it prints the time and 'running' or\n"
            "'stopped' (with --tsv tab-separated).\n",
    .run = runStopwatch,
    .needsRoot = false,
};

} // namespace zonara

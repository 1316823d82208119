#pragma once
// The stopwatch for a terminal: keys and typed lines to actions, and the one line it redraws.

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/Stopwatch.h"

namespace zonara {

enum class ConsoleAction { None, StartStop, Reset, Quit };

// A key pressed on a terminal in raw mode: Enter (or the blank) starts and
// stops, r resets, q, Escape, Ctrl-C and Ctrl-D quit; the rest does nothing.
ConsoleAction consoleActionForKey(char key);

// A line read where there is no terminal: an empty line is Enter, "r" or
// "reset" resets, "q" or "quit" quits, "start" and "stop" press Enter. Blanks
// around the word and any case are allowed.
ConsoleAction consoleActionForLine(std::string_view line);

class StopwatchConsole {
  public:
    // Applies an action at tick count `now`; false once the session ends.
    bool apply(ConsoleAction action, std::uint32_t now);
    // The periodic update while running.
    void tick(std::uint32_t now) { watch.tick(now); }

    const Stopwatch& stopwatch() const { return watch; }

    // The line the terminal shows, always of one width so that a redraw
    // over it with a carriage return leaves nothing behind:
    // "00:12.34  running   Enter: stop  r: reset  q: quit".
    std::string line() const;
    // "running" or "stopped".
    std::string_view state() const { return watch.running() ? "running" : "stopped"; }

  private:
    Stopwatch watch;
};

} // namespace zonara

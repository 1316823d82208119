#pragma once
// A terminal read key by key, without echo, and put back as it was when this goes.

#include <optional>
#include <string>

#include <termios.h>

namespace zonara {

class RawTerminal {
  public:
    // Switches the terminal on `fd` to raw reading; active() says whether it
    // could (not when fd is no terminal). Ctrl-C then arrives as a key.
    explicit RawTerminal(int fd);
    ~RawTerminal();
    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    bool active() const { return switched; }

    // Waits at most `timeoutMs` for keys and returns what was typed, empty
    // when nothing was; nothing at the end of input or on an error.
    std::optional<std::string> readKeys(int timeoutMs);

  private:
    int fd;
    termios saved{};
    bool switched = false;
};

} // namespace zonara

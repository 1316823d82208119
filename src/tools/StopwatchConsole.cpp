#include "tools/StopwatchConsole.h"

#include <cctype>

namespace zonara {

ConsoleAction consoleActionForKey(char key) {
    switch (key) {
    case '\n':
    case '\r':
    case ' ':
        return ConsoleAction::StartStop;
    case 'r':
    case 'R':
        return ConsoleAction::Reset;
    case 'q':
    case 'Q':
    case '\x03': // Ctrl-C, which raw mode delivers as a key
    case '\x1b': // Escape
    case '\x04': // Ctrl-D, which raw mode no longer turns into an end of input
        return ConsoleAction::Quit;
    default:
        return ConsoleAction::None;
    }
}

ConsoleAction consoleActionForLine(std::string_view line) {
    const auto blank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    while (!line.empty() && blank(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && blank(line.back()))
        line.remove_suffix(1);
    std::string word;
    for (char c : line)
        word.push_back(char(std::tolower(static_cast<unsigned char>(c))));
    if (word.empty() || word == "start" || word == "stop")
        return ConsoleAction::StartStop;
    if (word == "r" || word == "reset")
        return ConsoleAction::Reset;
    if (word == "q" || word == "quit")
        return ConsoleAction::Quit;
    return ConsoleAction::None;
}

bool StopwatchConsole::apply(ConsoleAction action, std::uint32_t now) {
    switch (action) {
    case ConsoleAction::StartStop:
        // Unlike the window, which stops on its last 100 ms tick, a terminal
        // stops on the key: the time shown is the time measured.
        watch.tick(now);
        watch.startStop(now);
        return true;
    case ConsoleAction::Reset:
        watch.tick(now);
        watch.reset();
        return true;
    case ConsoleAction::Quit:
        watch.tick(now);
        return false;
    case ConsoleAction::None:
        return true;
    }
    return true;
}

std::string StopwatchConsole::line() const {
    std::string text = watch.text() + "  ";
    text += state();
    text += watch.running() ? "   Enter: stop " : "   Enter: start";
    text += "  r: reset  q: quit";
    return text;
}

} // namespace zonara

#include "app/cli/RawTerminal.h"

#include <array>
#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace zonara {

RawTerminal::RawTerminal(int fd) : fd(fd) {
    if (isatty(fd) != 1 || tcgetattr(fd, &saved) != 0)
        return;
    termios raw = saved;
    // No line editing, no echo, and no signals: Ctrl-C is a key like q, so
    // the terminal is always put back by the destructor.
    raw.c_lflag &= tcflag_t(~(ICANON | ECHO | ISIG));
    raw.c_cc[VMIN] = 0;
    raw.c_cc[VTIME] = 0;
    switched = tcsetattr(fd, TCSANOW, &raw) == 0;
}

RawTerminal::~RawTerminal() {
    if (switched)
        tcsetattr(fd, TCSANOW, &saved);
}

std::optional<std::string> RawTerminal::readKeys(int timeoutMs) {
    pollfd wait{fd, POLLIN, 0};
    const int ready = poll(&wait, 1, timeoutMs);
    if (ready < 0)
        return errno == EINTR ? std::optional<std::string>(std::string()) : std::nullopt;
    if (ready == 0)
        return std::string();
    std::array<char, 64> buffer{};
    const ssize_t got = read(fd, buffer.data(), buffer.size());
    if (got < 0)
        return errno == EINTR || errno == EAGAIN ? std::optional<std::string>(std::string())
                                                 : std::nullopt;
    if (got == 0) // the terminal hung up
        return std::nullopt;
    return std::string(buffer.data(), std::size_t(got));
}

} // namespace zonara

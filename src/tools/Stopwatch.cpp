#include "tools/Stopwatch.h"

#include <cstdio>

namespace zonara {

void Stopwatch::startStop(std::uint32_t now) {
    if (isRunning) {
        isRunning = false;
        return;
    }
    lastTick = now;
    isRunning = true;
}

void Stopwatch::tick(std::uint32_t now) {
    // A tick still queued when the watch stopped counts nothing.
    if (!isRunning)
        return;
    // Unsigned arithmetic carries the count across its wrap by itself; the
    // wrap costs the one millisecond more that the handheld takes off.
    elapsed = elapsed - lastTick + now;
    if (now < lastTick)
        elapsed -= 1;
    lastTick = now;
}

std::array<int, 3> stopwatchFields(std::uint32_t elapsedMs) {
    const std::uint32_t s = elapsedMs / 1000;
    if (elapsedMs < 3600000)
        return {int(s / 60), int(s % 60), int(elapsedMs % 1000 / 10)};
    return {int(s / 3600), int(s / 60 % 60), int(s % 60)};
}

std::array<int, 3> Stopwatch::fields() const {
    return stopwatchFields(elapsed);
}

std::string Stopwatch::text() const {
    const auto [a, b, c] = fields();
    char line[40];
    std::snprintf(line, sizeof line, elapsed < 3600000 ? "%02d:%02d.%02d" : "%02d:%02d:%02d", a, b,
                  c);
    return line;
}

std::optional<DisplayPlacement> stopwatchDisplayPlacement(const DeviceProfile& profile,
                                                          int clientWidth, int clientHeight) {
    const bool landscapeOrSquare = profile.width >= profile.height;
    int width = profile.highResolution ? 300 : 220;
    int height = profile.highResolution ? 150 : 110;
    if (profile.secondDisplay) {
        if (profile.highResolution) {
            width = 220;
            height = 110;
        } else if (landscapeOrSquare) {
            return std::nullopt;
        } else {
            width = 154;
            height = 80;
        }
    }
    const int spanWidth =
        !profile.highResolution && landscapeOrSquare ? clientWidth - 1 : clientWidth;
    // The narrowest screen (176 wide) cannot hold the 220-wide display: it
    // takes the small portrait size the second display uses rather than lose
    // a digit at each edge.
    if (width > clientWidth) {
        width = 154;
        height = 80;
    }
    return DisplayPlacement{(spanWidth - width) / 2, (clientHeight - height) / 2, width, height};
}

} // namespace zonara

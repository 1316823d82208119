#pragma once
// The stopwatch's arithmetic: start, stop, reset and the 100 ms tick on a 32-bit tick count.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "clocks/DigitalClock.h"
#include "core/DeviceProfile.h"

namespace zonara {

class Stopwatch {
  public:
    // The interval of the tick while running.
    static constexpr int tickIntervalMs = 100;

    // Starts a stopped watch (keeping the time it has) or stops a running one
    // (losing what passed since the last tick). `now` is the tick count.
    void startStop(std::uint32_t now);
    // Adds the time since the last tick, while running.
    void tick(std::uint32_t now);
    // Back to zero; a running watch keeps running and counts on from zero.
    void reset() { elapsed = 0; }
    // Leaving the window stops a running watch; its time is kept.
    void deactivate() { isRunning = false; }

    bool running() const { return isRunning; }
    std::uint32_t elapsedMs() const { return elapsed; }
    std::uint32_t lastTickCount() const { return lastTick; }

    // The three fields shown: minutes, seconds, hundredths below an hour;
    // hours, minutes, seconds from an hour on.
    std::array<int, 3> fields() const;
    // The same as one line of text, "MM:SS.hh" or "HH:MM:SS".
    std::string text() const;

  private:
    bool isRunning = false;
    std::uint32_t elapsed = 0;
    std::uint32_t lastTick = 0;
};

// The shown fields for an elapsed time.
std::array<int, 3> stopwatchFields(std::uint32_t elapsedMs);

// The display's look: flags 9 (six digits, hours as given, no AM/PM), lit
// segments and their outlines in orange, everything else dark grey.
inline constexpr std::uint32_t stopwatchDisplayFlags =
    digitalFlags::showSeconds | digitalFlags::never12Hour;
inline constexpr DigitalClockColours stopwatchColours{
    rgb(253, 88, 27), rgb(30, 30, 30), rgb(253, 88, 27), rgb(30, 30, 30), rgb(30, 30, 30)};

struct DisplayPlacement {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const DisplayPlacement&, const DisplayPlacement&) = default;
};

// Where the display goes in a client area of W x H on the given screen;
// nothing when it stays where it is (a low-resolution landscape screen with
// the second display flag set). A display wider than the area takes the
// small 154 x 80 size.
std::optional<DisplayPlacement> stopwatchDisplayPlacement(const DeviceProfile& profile,
                                                          int clientWidth, int clientHeight);

} // namespace zonara

#pragma once
// When a clock view's next one-second tick is due: just past the clock source's next second.

#include "core/ClockSource.h"

namespace zonara {

// A tick lands this long after the second turns, so that a timer that fires a little early
// still reads the new second.
inline constexpr int tickLatenessMs = 4;

// Milliseconds from now to the next tick. A fixed clock never turns a second; it is looked
// at once a second all the same, as the one-second timer did.
inline int nextTickDelayMs(const ClockSource& clock) {
    return clock.isFixed() ? 1000 : 1000 - clock.utcNow().milliseconds + tickLatenessMs;
}

} // namespace zonara

#pragma once
// The multi-clock page: four small clocks filling the view, one per slot.

#include <array>

#include "clocks/SmallClockLayout.h"
#include "controls/PixelSurface.h"
#include "globe/ClockFaces.h"

namespace zonara {

struct MultiClockLayout {
    std::array<PixelRect, 4> cells; // slot order
    ClockFace face;                 // the same picture for all four
    int mode = FaceBeside;
};

// A portrait view stacks the four clocks, any other has two rows of two. Each clock takes
// the largest face that leaves a margin of a quarter line above and below it (the
// smallest face when none does).
MultiClockLayout layoutMultiClock(int width, int height, int lineHeight);

// The slot whose cell holds the point, or -1.
int multiClockSlotAt(const MultiClockLayout& layout, PixelPoint point);

// The selected slot's frame: two pixels wide, just inside its cell.
PixelRect selectionFrame(const PixelRect& cell);
inline constexpr int selectionFrameWidth = 2;

} // namespace zonara

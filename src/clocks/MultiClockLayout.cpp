#include "clocks/MultiClockLayout.h"

#include <algorithm>

namespace zonara {

MultiClockLayout layoutMultiClock(int width, int height, int lineHeight) {
    MultiClockLayout layout;
    const bool portrait = height > width;
    const int columns = portrait ? 1 : 2;
    const int rows = portrait ? 4 : 2;
    for (int i = 0; i < 4; ++i) {
        const int column = i % columns;
        const int row = i / columns;
        // Edges from the running fraction, so the cells tile the view without a gap.
        layout.cells[std::size_t(i)] = {width * column / columns, height * row / rows,
                                        width * (column + 1) / columns, height * (row + 1) / rows};
    }
    const int gap = std::max(2, lineHeight / 4);
    const int room = std::min(layout.cells[0].height(), layout.cells[0].width() / 2) - 2 * gap;
    layout.face = clockFaces.front();
    for (const ClockFace& face : clockFaces) {
        if (face.size <= room) {
            layout.face = face;
        }
    }
    layout.mode = FaceBeside;
    return layout;
}

int multiClockSlotAt(const MultiClockLayout& layout, PixelPoint point) {
    for (std::size_t i = 0; i < layout.cells.size(); ++i) {
        const PixelRect& cell = layout.cells[i];
        if (point.x >= cell.left && point.x < cell.right && point.y >= cell.top &&
            point.y < cell.bottom) {
            return int(i);
        }
    }
    return -1;
}

PixelRect selectionFrame(const PixelRect& cell) {
    return {cell.left + 1, cell.top + 1, cell.right - 1, cell.bottom - 1};
}

} // namespace zonara

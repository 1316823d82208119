#pragma once
// Copying one pixel surface onto another, plainly or leaving out a key colour.

#include "controls/PixelSurface.h"

namespace zonara {

// The whole source with its top-left at (x, y); what falls outside the target is cut off.
inline void copySurface(PixelSurface& target, const PixelSurface& source, int x, int y) {
    for (int row = 0; row < source.height(); ++row) {
        for (int column = 0; column < source.width(); ++column) {
            target.setPixel(x + column, y + row, source.getPixel(column, row));
        }
    }
}

// As copySurface, but source pixels equal to the key leave the target as it was.
inline void copySurfaceKeyed(PixelSurface& target, const PixelSurface& source, int x, int y,
                             ColorRef key) {
    for (int row = 0; row < source.height(); ++row) {
        for (int column = 0; column < source.width(); ++column) {
            const ColorRef colour = source.getPixel(column, row);
            if (colour != key) {
                target.setPixel(x + column, y + row, colour);
            }
        }
    }
}

} // namespace zonara

#pragma once
// Where the data update dialog's four controls go, by the screen's shape, its
// resolution and the second layout flag.

#include <optional>

#include "controls/PixelSurface.h"

namespace zonara {

struct UpdateDlgRects {
    PixelRect description;
    PixelRect progress;
    PixelRect icon;
    PixelRect status;

    friend bool operator==(const UpdateDlgRects&, const UpdateDlgRects&) = default;
};

// clientWidth is the dialog's own width; the shape comes from the screen
// (portrait when taller than wide, square and landscape alike otherwise).
// Nothing when the controls stay where they are: a landscape or square
// screen at normal resolution with the second flag set.
std::optional<UpdateDlgRects> updateDlgLayout(int clientWidth, int screenWidth, int screenHeight,
                                              bool highResolution, bool secondFlag);

} // namespace zonara

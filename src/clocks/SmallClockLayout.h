#pragma once
// Where a small clock's face, hands and texts go inside its rectangle.

#include "controls/PixelSurface.h"

namespace zonara {

// The strip's layout modes, and the multi-clock page's.
enum SmallClockMode : int {
    // Face at the left, the lines stacked beside it: name, time, date, difference.
    FaceBeside = 0,
    // Face centred at the top, the lines centred below it.
    FaceAbove = 1,
    // Face at the left, two columns beside it: name over time, date over difference. For
    // a short, wide strip.
    FaceBesideWide = 3,
};

struct SmallClockLayout {
    // The face picture, scaled down into this square when its own side does not fit.
    PixelRect face;
    PixelPoint centre;
    int radius = 0; // the hands' reach: the size value, scaled with the face
    // A line-high square at the start of the time line for the sun or moon.
    PixelRect cue;
    // Name and time in the bold font, date and difference in the normal one. A line that
    // finds no room is empty; the date goes first, then the difference.
    PixelRect name;
    PixelRect time;
    PixelRect date;
    PixelRect difference;
    bool centred = false; // texts centred in their rectangles, else from the left
};

// faceSize is the face picture's side, sizeValue its hands' radius on it (see ClockFace),
// lineHeight the text fonts' line height. An unknown mode lays out as FaceBeside.
SmallClockLayout layoutSmallClock(const PixelRect& area, int faceSize, int sizeValue, int mode,
                                  int lineHeight);

} // namespace zonara

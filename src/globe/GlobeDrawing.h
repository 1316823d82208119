#pragma once
// The globe view's picture without text: the shaded map at the scroll position and the
// four markers, drawn into a surface of the view's size.

#include "controls/PixelSurface.h"
#include "globe/GlobeModel.h"

namespace zonara {

// Map pieces first (plain copies), then the markers: the selected one whole, the others
// without their key-coloured pixels. An empty map or marker draws nothing of itself.
void drawGlobeView(PixelSurface& view, const PixelSurface& map, const PixelSurface& marker,
                   const GlobeModel& model);

} // namespace zonara

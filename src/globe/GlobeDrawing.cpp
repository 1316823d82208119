#include "globe/GlobeDrawing.h"

#include <algorithm>

#include "controls/PixelCopy.h"

namespace zonara {

void drawGlobeView(PixelSurface& view, const PixelSurface& map, const PixelSurface& marker,
                   const GlobeModel& model) {
    const int rows = std::min(map.height(), model.mapHeight());
    for (const MapPiece& piece : model.mapPieces()) {
        for (int y = 0; y < rows; ++y) {
            for (int i = 0; i < piece.width; ++i) {
                const int source = piece.sourceX + i;
                if (source >= 0 && source < map.width()) {
                    view.setPixel(piece.destX + i, y, map.getPixel(source, y));
                }
            }
        }
    }
    if (marker.width() <= 0 || marker.height() <= 0) {
        return;
    }
    for (const MarkerPlacement& placed : model.markers(marker.width(), marker.height())) {
        if (placed.opaque) {
            copySurface(view, marker, placed.topLeft.x, placed.topLeft.y);
        } else {
            copySurfaceKeyed(view, marker, placed.topLeft.x, placed.topLeft.y, markerKeyColour);
        }
    }
}

} // namespace zonara

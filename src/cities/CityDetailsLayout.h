#pragma once
// Where the city details put their two name lines and their list, by screen shape.

#include "controls/PixelSurface.h"

namespace zonara {

// Tall for an upright screen (and a square one), Short for a wide one, where
// the name lines move closer to leave the list more rows.
enum class DetailsArrangement { Tall, Short };

DetailsArrangement detailsArrangement(int width, int height);

struct DetailsGeometry {
    PixelRect cityLine;
    PixelRect countryLine;
    PixelRect list;
    int labelColumn = 0; // the first column; the second takes the rest
};

// The rectangles inside a client area of this size. Positions are those of a
// 96-dpi screen, scaled by dpi / 96: the name lines 2 pixels in, the country
// 35 (Tall) or 25 (Short) below the city and the list as far again below the
// country, down to the bottom and one pixel narrower than the area; the
// first column is half of the list's width. None is ever inside out.
DetailsGeometry detailsGeometry(DetailsArrangement arrangement, int width, int height, int dpi);

} // namespace zonara

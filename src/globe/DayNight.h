#pragma once
// Night shading of the world map: the night picture copied in below the day/night boundary,
// a short gradient along it, and the equator.

#include "controls/ColorRef.h"
#include "controls/PixelSurface.h"
#include "core/SystemTime.h"
#include "globe/FixedDecimal.h"

namespace zonara {

inline constexpr ColorRef equatorColour = rgb(60, 60, 60);

// Where the sun stands over an equirectangular map whose left edge is longitude -180.
struct SunOverMap {
    double declination = 0; // degrees, north positive
    // The sub-solar meridian's distance from the left edge in whole degrees, 0..360.
    int subSolarDegrees = 0;
};

SunOverMap sunOverMap(const SystemTime& utc);

// The gradient along the boundary: trunc(H * 0.027) rows (8 at 320 rows, 4 at 160) and
// the weight added per row, 255 / rows in whole numbers. A map under 38 rows has no band.
struct ShadingBand {
    int rows = 0;
    int step = 0;
};

ShadingBand shadingBand(int mapHeight);

// Shades the map (holding the day picture) from the night picture of the same size. The
// night side lies south of the boundary while the declination is positive and north of
// it otherwise; with bandInsideNight the night starts band rows beyond the boundary and
// the gradient runs from there back toward the day side, pure night in its first row.
// The top row is never blended. An empty night picture leaves the day as it is; the
// equator is drawn on any map.
void DrawDayNight(PixelSurface& map, const PixelSurface& night, const SunOverMap& sun,
                  bool bandInsideNight = true);
void DrawDayNight(PixelSurface& map, const PixelSurface& night, const SystemTime& utc,
                  bool bandInsideNight = true);

} // namespace zonara

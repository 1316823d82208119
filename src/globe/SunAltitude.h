#pragma once
// The sun's height over a place at an instant: whether it is day there.

#include "core/SystemTime.h"

namespace zonara {

// Degrees above the horizon (negative below), from the declination and Greenwich hour
// angle of the globe's shading. Longitude east and latitude north positive.
double sunAltitude(const SystemTime& utc, double longitude, double latitude);

// Day while the sun's centre is above the official sunrise and sunset zenith distance
// (90 deg 50'), so the cue turns with the shown sunrise and sunset times.
bool sunIsUp(const SystemTime& utc, double longitude, double latitude);

} // namespace zonara

#pragma once
// The angle conversion factors of the astronomy routines, kept at the values they were
// first computed with (pi rounded to single precision), not the exact ones.

namespace zonara::astro {

// Degrees to radians, and its double for the 2x terms.
inline constexpr double k = 0.017453293005625408;
inline constexpr double k2 = 0.034906586011250816;

// Radians to degrees: the right-ascension step of the sunrise method uses the first,
// everything else the second. They differ in the last digit, and both are kept.
inline constexpr double radToDegRightAscension = 57.29577791868205;
inline constexpr double radToDeg = 57.29577791868204;

// The declination routine's own degrees-to-radians factor for its mean-anomaly terms.
inline constexpr double kAnomaly = 0.01745298757299781;
inline constexpr double kAnomaly2 = 0.03490597514599562;

} // namespace zonara::astro

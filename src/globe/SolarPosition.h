#pragma once
// The sun's declination and Greenwich hour angle, and the day/night boundary's latitude.

namespace zonara {

// The day count both solar series start from (the year, not the date, decides leap days).
int solarDayCount(int day, int month, int year);

// Degrees, north positive. hoursUT = hour + minute / 60 + second / 3600.
double SolarDeclination(int day, int month, int year, double hoursUT);

// Degrees in (0, 360], measured westward from Greenwich; UT noon with no equation of
// time gives 360, not 0.
double SunGreenwichHourAngle(int day, int month, int year, double hoursUT);

// The latitude (whole degrees, truncated toward zero) where the sun is on the horizon at
// a point hourAngleDeg degrees of longitude from the sub-solar meridian. A declination of
// exactly 0 divides by zero and the atan of the infinity, scaled by the kept factor, is
// just under 90: +0 gives -89 where the hour angle's cosine is positive and 89 where it
// is negative, -0 the opposite. A NaN declination gives 0.
int TerminatorLatitude(int hourAngleDeg, double declination);

} // namespace zonara

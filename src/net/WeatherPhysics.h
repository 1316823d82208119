#pragma once
// Unit conversions and the derived values of a weather report.

#include <string_view>

namespace zonara {

double celsiusToFahrenheit(double celsius);
double metresPerSecondToMph(double metresPerSecond);
double hectopascalToInchesOfMercury(double hectopascal);

// The Magnus approximation over water (Alduchov and Eskridge's constants);
// nothing sensible for a humidity of 0, which gives minus infinity.
double dewPointCelsius(double celsius, double relativeHumidity);

// The North American wind chill index (2001); above 50 °F or at 3 mph and
// below there is no chill and the temperature itself is returned.
double windChillFahrenheit(double fahrenheit, double mph);

// "N", "NNE" ... "NNW": the 16-point compass name of a direction in degrees.
std::string_view compassPoint(double degrees);

} // namespace zonara

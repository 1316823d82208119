#include "net/WeatherPhysics.h"

#include <array>
#include <cmath>

namespace zonara {

double celsiusToFahrenheit(double celsius) {
    return celsius * 9.0 / 5.0 + 32.0;
}

double metresPerSecondToMph(double metresPerSecond) {
    return metresPerSecond * 3600.0 / 1609.344;
}

double hectopascalToInchesOfMercury(double hectopascal) {
    return hectopascal / 33.8639;
}

double dewPointCelsius(double celsius, double relativeHumidity) {
    constexpr double a = 17.625;
    constexpr double b = 243.04;
    const double gamma = std::log(relativeHumidity / 100.0) + a * celsius / (b + celsius);
    return b * gamma / (a - gamma);
}

double windChillFahrenheit(double fahrenheit, double mph) {
    if (fahrenheit > 50.0 || mph <= 3.0)
        return fahrenheit;
    const double v = std::pow(mph, 0.16);
    return 35.74 + 0.6215 * fahrenheit - 35.75 * v + 0.4275 * fahrenheit * v;
}

std::string_view compassPoint(double degrees) {
    static constexpr std::array<std::string_view, 16> points = {
        "N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
        "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};
    double turn = std::fmod(degrees, 360.0);
    if (turn < 0)
        turn += 360.0;
    const int sector = int(std::floor((turn + 11.25) / 22.5)) % 16;
    return points[std::size_t(sector)];
}

} // namespace zonara

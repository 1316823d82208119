#include "tools/UnitTables.h"

namespace zonara {

namespace {

constexpr std::array<Unit, 3> temperatureUnits{{
    {"Kelvin (K)", "(K)"},
    {"degrees celcius (°C)", "(°C)"},
    {"degress fahrenheit (°F)", "(°F)"},
}};

constexpr int kelvin = 0;
constexpr int celsius = 1;
constexpr int fahrenheit = 2;

} // namespace

double CTableTemperature::Convert(float value, int from, int to) const {
    const double v = value;
    if (from < kelvin || from > fahrenheit || to < kelvin || to > fahrenheit || from == to)
        return v;
    if (from == fahrenheit) {
        // Above freezing and scaled by 5/9 in single precision: 212 °F comes
        // out as 100.00000762939453 °C.
        const float aboveFreezing = value - 32.0f;
        const float scaled = aboveFreezing * 0.5555556f;
        return to == celsius ? double(scaled) : double(scaled) + 273.15;
    }
    if (from == kelvin) {
        const double c = v - 273.15;
        return to == celsius ? c : c * 1.8 + 32;
    }
    return to == kelvin ? v + 273.15 : v * 1.8 + 32;
}

std::string_view CTableTemperature::UnitName(int index) const {
    return index >= 0 && index < 3 ? temperatureUnits[std::size_t(index)].name : std::string_view();
}

std::string_view CTableTemperature::UnitSuffix(int index) const {
    return index >= 0 && index < 3 ? temperatureUnits[std::size_t(index)].suffix
                                   : std::string_view();
}

const CTable& UnitTables::table(UnitCategory category) const {
    switch (category) {
    case UnitCategory::Distance:
        return distance;
    case UnitCategory::Length:
        return length;
    case UnitCategory::Area:
        return area;
    case UnitCategory::Volume:
        return volume;
    case UnitCategory::Weight:
        return weight;
    case UnitCategory::Speed:
        return speed;
    case UnitCategory::Pressure:
        return pressure;
    case UnitCategory::Torque:
        return torque;
    case UnitCategory::Angle:
        return angle;
    case UnitCategory::Temperature:
        break;
    }
    return temperature;
}

} // namespace zonara

#include "globe/MoonPhase.h"

#include <array>
#include <cmath>

namespace zonara {

namespace {

constexpr std::array<std::string_view, 8> phaseNames = {
    "New moon",  "Waxing crescent", "First quarter", "Waxing gibbous",
    "Full moon", "Waning gibbous",  "Last quarter",  "Waning crescent",
};

} // namespace

int MoonPhaseIndex(int year, int month, int day) {
    // January and February count as months 13 and 14 of the year before; m is one more.
    const int y = month < 3 ? year - 1 : year;
    const int m = month < 3 ? month + 12 + 1 : month + 1;
    const double c = std::trunc(365.25 * y);
    // trunc(30.6 m), taken as the negative product and subtracted: the same value.
    const double negE = std::trunc(m * -30.6);
    const double x = (c - negE + day - 694039.09) * 0.033863867253640365;
    const double f = x - std::trunc(x);
    return static_cast<int>(f * 8 + 0.5) & 7;
}

std::string_view moonPhaseName(int index) {
    if (index < 0 || index >= static_cast<int>(phaseNames.size())) {
        return {};
    }
    return phaseNames[static_cast<std::size_t>(index)];
}

} // namespace zonara

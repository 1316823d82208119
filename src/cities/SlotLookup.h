#pragma once
// The clock slots looked up again by country and city name after the world
// files were replaced.

#include <array>
#include <cstddef>

#include "cities/CityCatalog.h"
#include "core/ClockSlot.h"

namespace zonara {

// Each slot whose country and city the catalog still has by their exact
// names takes the city's fields again; a slot whose city is gone keeps its
// values. Returns how many slots changed.
std::size_t lookUpSlotsAgain(CityCatalog& catalog, std::array<ClockSlot, 4>& slots);

} // namespace zonara

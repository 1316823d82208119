#pragma once
// Where an airport picked from the list goes: the clock slot's ICAO code.

#include "cities/AirportDialogState.h"
#include "core/ClockSlot.h"

namespace zonara {

// The slot's station code is the ICAO code its city details show and the
// settings file keeps; a picked airport replaces it until the slot's city is
// chosen again. Only a dialog ended with Done and a code of four units (once
// trimmed and upper-cased) changes the slot; true when it did.
bool keepChosenAirport(ClockSlot& slot, const AirportDialogEnd& ending);

} // namespace zonara

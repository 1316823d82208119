#include "cities/AirportChoice.h"

#include "cities/NewAirport.h"

namespace zonara {

bool keepChosenAirport(ClockSlot& slot, const AirportDialogEnd& ending) {
    std::u16string code = normalizedCode(ending.code);
    if (ending.result != airportDoneCommand || code.size() != 4) {
        return false;
    }
    slot.stationCode = std::move(code);
    return true;
}

} // namespace zonara

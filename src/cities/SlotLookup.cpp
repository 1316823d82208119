#include "cities/SlotLookup.h"

#include "core/Text.h"

namespace zonara {

std::size_t lookUpSlotsAgain(CityCatalog& catalog, std::array<ClockSlot, 4>& slots) {
    std::size_t changed = 0;
    for (ClockSlot& slot : slots) {
        const auto found = catalog.locate(toUtf8(slot.countryName), toUtf8(slot.cityName));
        if (!found || !found->city)
            continue;
        const ClockSlot before = slot;
        slot.Assign(catalog.countries()[found->country],
                    catalog.city(CityHit{found->country, *found->city}));
        changed += slot == before ? 0 : 1;
    }
    return changed;
}

} // namespace zonara

#pragma once
// One currency with its rate per euro, and the stored list of them.

#include <string>
#include <vector>

namespace zonara {

// Marks the euro's own entry; compared for equality, so it is kept exactly.
inline constexpr float euroRateMarker = -1.0f;

struct CurrencyEntry {
    std::u16string name; // from the code list; "Euro" for the euro
    std::u16string code; // three letters from the rates document; "EUR" for the euro
    float rate = 0.0f;   // units of this currency per euro, or euroRateMarker

    friend bool operator==(const CurrencyEntry&, const CurrencyEntry&) = default;
};

struct CurrencyList {
    std::u16string lastUpdate;          // shown to the user as it stands
    std::vector<CurrencyEntry> entries; // ascending by name

    friend bool operator==(const CurrencyList&, const CurrencyList&) = default;
};

} // namespace zonara

#pragma once
// Finding currencies by what people type, and the converter's item texts.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "net/CurrencyEntry.h"

namespace zonara {

// "name (code)", the text of an item in the converter's lists.
std::u16string currencyItemText(const CurrencyEntry& entry);

// The indexes of the entries that a typed text names, ignoring case: its code
// ("usd"), else its name ("us dollar"), else its item text ("US Dollar (USD)").
// Empty when nothing matches; several when a name is shared.
std::vector<std::size_t> findCurrencies(const CurrencyList& list, std::string_view typed);

// The amount text converted between two entries and shown as "%.4f".
std::string convertCurrencyText(std::string_view amountText, const CurrencyEntry& from,
                                const CurrencyEntry& to);

} // namespace zonara

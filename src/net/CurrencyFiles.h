#pragma once
// Data/currency.dat (the rates list) and Data/scurrency.dat (the converter's last pair).

#include <filesystem>
#include <string>
#include <string_view>

#include "net/CurrencyEntry.h"

namespace zonara {

inline constexpr std::string_view currencyFileName = "currency.dat";
inline constexpr std::string_view currencyChoiceFileName = "scurrency.dat";

// Strings in both files: a 32-bit little-endian count of UTF-16 units, then
// the units and a terminating zero unit. Readers keep at most this many units.
inline constexpr std::size_t maxCurrencyStringUnits = 255;

// A missing file is created empty. What is whole is read: a string, count or
// entry cut short by the end of the file ends the reading there. A file that
// cannot be opened or created gives an empty list.
CurrencyList LoadCurrencyList(const std::filesystem::path& file);
// False when the file could not be written; the old file then stays whole.
bool SaveCurrencyList(const std::filesystem::path& file, const CurrencyList& list);

// The texts of the items chosen in the converter's "from" and "to" lists.
struct CurrencyChoice {
    std::u16string from;
    std::u16string to;

    friend bool operator==(const CurrencyChoice&, const CurrencyChoice&) = default;
};

// A missing file is created empty; strings the file does not hold whole stay empty.
CurrencyChoice LoadCurrencyChoice(const std::filesystem::path& file);
bool SaveCurrencyChoice(const std::filesystem::path& file, const CurrencyChoice& choice);

} // namespace zonara

#pragma once
// The city or country a command was given, looked up as people type names,
// with the user's text when none or several fit.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/cli/CommandError.h"
#include "cities/CityCatalog.h"

namespace zonara {

struct ChosenCity {
    std::size_t countryIndex = 0;
    const Country* country = nullptr;
    const City* city = nullptr;
};

// The country a --country value names.
Expected<std::size_t> chooseCountry(CityCatalog& catalog, std::string_view typed);
// The city a name names, in the country a --country value names when given.
Expected<ChosenCity> chooseCity(CityCatalog& catalog, std::string_view typed,
                                const std::optional<std::string>& country);

// How many cities an ambiguous name lists before it says how many more.
inline constexpr std::size_t ambiguousListLimit = 10;

} // namespace zonara

#pragma once
// Finding units and categories by the names people type, for conversions from a terminal.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/UnitTables.h"

namespace zonara {

struct CategoryTable {
    UnitCategory category;
    const CTable* table;
};

// The ten tables of `tables` in menu order.
std::vector<CategoryTable> categoryTables(const UnitTables& tables);

struct ConversionPair {
    UnitCategory category;
    int from;
    int to;
    friend bool operator==(const ConversionPair&, const ConversionPair&) = default;
};

enum class LookupFailure {
    UnknownUnit,       // subject: the name; candidates: none
    UnknownCategory,   // subject: the name; candidates: every category
    NoCommonCategory,  // subject: "FROM TO"; candidates: none
    AmbiguousCategory, // subject: "FROM TO"; candidates: the categories holding both
    AmbiguousUnit,     // subject: the name; candidates: the long names it matches
};

struct LookupError {
    LookupFailure failure;
    std::string subject;
    std::vector<std::string> candidates;

    // One line for the user, naming the candidates.
    std::string message() const;
};

using ConversionLookup = std::variant<ConversionPair, LookupError>;

// A category by its label, in any case.
std::optional<UnitCategory> findCategory(std::string_view name);

// The table and units that convert FROM to TO. A unit is named by its long
// name with or without the part in brackets, or by its suffix with or without
// the brackets, in any case; "2" and "3" stand for "²" and "³", and the degree
// sign may be left out ("C", "m2", "kilometers", "(km)", "fl oz"). When given,
// `category` narrows the search to that table.
ConversionLookup findConversion(std::span<const CategoryTable> tables, std::string_view from,
                                std::string_view to,
                                std::optional<std::string_view> category = std::nullopt);

} // namespace zonara

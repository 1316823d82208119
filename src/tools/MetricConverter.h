#pragma once
// The unit converter's state: a calculator, the ten tables, the chosen category and units.

#include <optional>
#include <string>

#include "tools/CCalculator.h"
#include "tools/UnitTables.h"

namespace zonara {

enum class ConvertOutcome {
    NoSelection,   // a unit list has no selection: nothing happened
    CannotConvert, // the pair has no factor: the number stays as it was
    Converted,
};

// What the display shows after a pair that cannot be converted.
inline constexpr std::string_view cannotConvertText = "n\\a";

class MetricConverter {
  public:
    // Starts in the first category with no unit chosen.
    MetricConverter() = default;

    // The unit lists are refilled, so neither has a selection afterwards.
    void selectCategory(UnitCategory value);
    UnitCategory category() const { return current; }
    const CTable& table() const { return tables.table(current); }

    // A unit index out of the table's range counts as no selection.
    void setFromUnit(std::optional<int> index) { fromUnit = index; }
    void setToUnit(std::optional<int> index) { toUnit = index; }
    std::optional<int> fromUnitIndex() const { return fromUnit; }
    std::optional<int> toUnitIndex() const { return toUnit; }

    // A keypad key: the conversion key converts the displayed number, the
    // others go to the calculator. Any key clears the result line first.
    void pressKey(int index);
    // Converts the number on the display (its text read as a number).
    ConvertOutcome convert();
    // Converts a given value, as the conversion key does with the display's.
    ConvertOutcome convertValue(double value);

    // The display's text: "n\a" right after a pair that cannot be converted,
    // else the calculator's. The calculator keeps its number either way, so
    // the next key goes on from it.
    std::string displayText() const;
    // The converted value with the target unit's suffix ("100.0000076 (°C)",
    // "180 grads") right after a conversion; empty after any other key.
    const std::string& resultText() const { return result; }

    CCalculator& calculator() { return engine; }
    const CCalculator& calculator() const { return engine; }

  private:
    bool selected(std::optional<int> index) const;

    CCalculator engine;
    UnitTables tables;
    UnitCategory current = UnitCategory::Distance;
    std::optional<int> fromUnit;
    std::optional<int> toUnit;
    std::string result;
    bool notConvertible = false;
};

// The unit-suffixed form of a converted value: seven decimals when it has a
// fractional part, none otherwise, then a blank and the suffix.
std::string suffixedValue(double value, std::string_view suffix);

} // namespace zonara

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

// What the result line shows after a pair that cannot be converted.
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

    // The calculator's display text: after a pair that cannot be converted
    // the engine's number is what stays visible.
    const std::string& displayText() const { return engine.DisplayText(); }
    // The converted value with the target unit's suffix ("100.0000076 (°C)",
    // "180 grads"), or "n\a" after a pair that cannot be converted; empty
    // after any other key. The dialog shows it on its own line under the display.
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
};

// The unit-suffixed form of a converted value: seven decimals when it has a
// fractional part, none otherwise, then a blank and the suffix.
std::string suffixedValue(double value, std::string_view suffix);

} // namespace zonara

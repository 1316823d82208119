#pragma once
// The converters' four-function calculator with one memory, driven key by key.

#include <optional>
#include <string>
#include <string_view>

#include "controls/KeypadKeyIndex.h"

namespace zonara {

// Operators in the order their keys pass them; None when nothing is pending.
enum class PendingOp { Add = 1, Subtract = 2, Multiply = 3, Divide = 4, None = 5 };

class CCalculator {
  public:
    // Presses key 0..24. The conversion key and any other value change nothing
    // here: the owner converts and then calls SetValue.
    void Key(int index);

    void Append(std::string_view text);
    void Backspace();
    // Leaves the pending operator as it is, so "5 + C 3 =" adds 3 to 0.
    void Clear();
    void Operator(PendingOp op);
    void Equals();
    // Replaces the current value by f(current), shows it, and lets further
    // digits extend the shown text.
    void Unary(double (*f)(double));
    void MemoryClear() { memory.clear(); }
    void MemoryRecall();
    // Stores the display text itself, not a sum.
    void MemoryStore() { memory = display; }

    void SetValue(double value);
    const std::string& DisplayText() const { return display; }

    // The shown form of a number: whole numbers (and everything whose part
    // beyond the 32-bit truncation is not positive) as that integer, others
    // with 14 decimals and the trailing zeros dropped.
    static std::string FormatNumber(double x);

    double currentValue() const { return current; }
    double accumulatorValue() const { return accumulator; }
    PendingOp pendingOperator() const { return pendingOp; }
    const std::string& memoryText() const { return memory; }
    bool startsNewNumber() const { return startNew; }

  private:
    void Evaluate();

    double accumulator = 0;
    double current = 0;
    bool startNew = true;
    bool noAccumulator = true;
    PendingOp pendingOp = PendingOp::None;
    std::string display = "0";
    std::string memory; // empty: nothing remembered
};

// The numeric value of a text as atof reads it: the longest leading number
// after blanks, 0 when there is none. Independent of the process locale.
double atofValue(std::string_view text);

// The 32-bit truncation the handheld's processor does: saturating at the
// range's ends, NaN to 0.
int truncateToInt32(double x);

// A key by its face or name as typed on a command line: "0"–"9", ".", "+",
// "-", "x", "÷" or "/", "=", "C", "«" or "back", "MC", "MR", "M+", "sqrt",
// "1/x", "+/-"; letters in any case. Nothing for an unknown name.
std::optional<int> calculatorKeyByName(std::string_view name);

} // namespace zonara

#pragma once
// The converter's keypad: the calculator that holds the amount, and CON converting it.

#include <string>

#include "net/CurrencyConverter.h"
#include "tools/CCalculator.h"

namespace zonara {

class CurrencyPad {
  public:
    // A keypad key. CON replaces the displayed amount by its conversion
    // between the converter's chosen pair, shown as "%.4f"; the operators
    // then work on that value and a digit starts a new amount. Without a
    // chosen pair CON does nothing. Every other key goes to the calculator.
    void pressKey(int index, const CurrencyConverter& converter);

    const std::string& displayText() const { return engine.DisplayText(); }
    const CCalculator& calculator() const { return engine; }

  private:
    CCalculator engine;
    bool converted = false; // the display shows a conversion's result
};

} // namespace zonara

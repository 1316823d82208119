#include "net/CurrencyPad.h"

#include "controls/KeypadKeyIndex.h"

namespace zonara {

void CurrencyPad::pressKey(int index, const CurrencyConverter& converter) {
    if (index == keypadKey::convert) {
        if (const std::optional<std::string> result = converter.convert(engine.DisplayText())) {
            // Shown exactly as formatted, not as the calculator would print the value.
            engine.Clear();
            engine.Append(*result);
            converted = true;
        }
        return;
    }
    const bool startsNumber = (index >= 0 && index <= 9) || index == keypadKey::point;
    if (converted && startsNumber) {
        engine.Clear();
    }
    converted = false;
    engine.Key(index);
}

} // namespace zonara

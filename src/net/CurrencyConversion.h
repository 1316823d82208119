#pragma once
// Converting an amount between two currencies by their rates per euro, in single precision.

#include <string>
#include <string_view>

namespace zonara {

// A rate equal to euroRateMarker means that side is the euro. The arithmetic
// stays in 32-bit floats: results carry about seven significant digits.
float ConvertCurrency(float amount, float fromRate, float toRate);

// The C library's text-to-double reading, narrowed to a float, but with "." as
// the decimal point whatever the process locale: leading blanks, a sign,
// digits, a fraction and an exponent are read as far as they go; text that
// does not start with a number gives 0.
float readCurrencyNumber(std::string_view text);

// "%.4f", with "." as the decimal point whatever the process locale.
std::string formatCurrencyAmount(float value);

// The shortest text that reads back as the same float ("1.0844", "160.5").
std::string formatCurrencyRate(float rate);

} // namespace zonara

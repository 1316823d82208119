#include "net/CurrencyConversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "net/CurrencyEntry.h"

namespace zonara {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The power of ten of a number's first significant digit, roughly: enough to
// tell a number too large for a double from one too small. Saturates.
long decimalMagnitude(std::string_view number) {
    const std::size_t e = number.find_first_of("eE");
    long exponent = 0;
    if (e != std::string_view::npos) {
        std::string_view digits = number.substr(e + 1);
        const bool negative = !digits.empty() && digits[0] == '-';
        if (!digits.empty() && (digits[0] == '-' || digits[0] == '+')) {
            digits.remove_prefix(1);
        }
        for (const char c : digits) {
            exponent = std::min(exponent * 10 + (c - '0'), 1'000'000L);
        }
        exponent = negative ? -exponent : exponent;
        number = number.substr(0, e);
    }
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::size_t first = number.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return -1; // all zeros
    }
    const long position = first < point ? long(point - first) - 1 : -long(first - point);
    return position + exponent;
}

} // namespace

float ConvertCurrency(float amount, float fromRate, float toRate) {
    const bool fromEuro = fromRate == euroRateMarker;
    const bool toEuro = toRate == euroRateMarker;
    if (fromEuro && toEuro) {
        return amount;
    }
    if (fromEuro) {
        return amount * toRate;
    }
    if (toEuro) {
        return amount / fromRate;
    }
    // Through the euro: divided first, multiplied second, rounded to a float
    // after each step.
    const float euros = amount / fromRate;
    return euros * toRate;
}

float readCurrencyNumber(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i])) {
        ++i;
    }
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    const std::size_t start = i;
    std::size_t integerDigits = 0;
    std::size_t fractionDigits = 0;
    while (i < text.size() && isDigit(text[i])) {
        ++i, ++integerDigits;
    }
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && isDigit(text[i])) {
            ++i, ++fractionDigits;
        }
    }
    if (integerDigits + fractionDigits == 0) {
        return 0.0f;
    }
    // An exponent counts only with at least one digit ("2e" reads as 2).
    std::size_t end = i;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) {
            ++j;
        }
        if (j < text.size() && isDigit(text[j])) {
            while (j < text.size() && isDigit(text[j])) {
                ++j;
            }
            end = j;
        }
    }
    double value = 0.0;
    const auto [stop, error] =
        std::from_chars(text.data() + start, text.data() + end, value, std::chars_format::general);
    if (error == std::errc::result_out_of_range) {
        // Beyond a double: the C library gives a huge value or zero.
        value = decimalMagnitude(text.substr(start, end - start)) > 0
                    ? std::numeric_limits<double>::infinity()
                    : 0.0;
    } else if (error != std::errc() || stop != text.data() + end) {
        value = 0.0;
    }
    // Narrowing a double beyond the float range is undefined in C++; IEEE
    // arithmetic rounds it to infinity from half a unit above the largest float.
    if (std::fabs(value) >= 0x1.ffffffp127) {
        value = std::numeric_limits<double>::infinity();
    }
    return float(negative ? -value : value);
}

std::string formatCurrencyAmount(float value) {
    char buffer[400]; // the largest float in fixed notation with four decimals fits
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, double(value), std::chars_format::fixed, 4);
    if (error != std::errc()) {
        return {};
    }
    return std::string(buffer, end);
}

std::string formatCurrencyRate(float rate) {
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, rate);
    if (error != std::errc()) {
        return {};
    }
    return std::string(buffer, end);
}

} // namespace zonara

#include "net/CurrencyConversion.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "net/CurrencyEntry.h"

namespace zonara {
namespace {

constexpr float euro = euroRateMarker;

TEST(CurrencyConversionTest, ConvertsThroughTheEuroInSinglePrecision) {
    struct Case {
        const char* amount;
        float from;
        float to;
        const char* shown;
    };
    // Expected texts come from IEEE single-precision arithmetic done by hand
    // (or in a float32 model), rounding after the division and again after
    // the multiplication.
    const Case cases[] = {
        {"100", euro, 1.5f, "150.0000"},
        {"100", 1.5f, euro, "66.6667"},
        {"100", euro, euro, "100.0000"},
        {"100", 1.5f, 1.5f, "100.0000"},
        {"-100", euro, 1.5f, "-150.0000"},
        {"0", 1.0844f, 160.5f, "0.0000"},
        // Divided first: 100 / 0.7 then x 1.7; the other order, or doubles, give 242.8571.
        {"100", 0.7f, 1.7f, "242.8572"},
        {"1234.56", 0.85f, 160.5f, "233113.9844"},
        // Seven significant digits are all a float holds.
        {"16777217", euro, euro, "16777216.0000"},
        {"123456.78", euro, 160.5f, "19814814.0000"},
        {"99999999", 1.0844f, euro, "92216888.0000"},
        {"0.1", euro, euro, "0.1000"},
        // A rate that was not a number is stored as 0.
        {"100", 0.0f, 1.5f, "inf"},
        {"100", 1.5f, 0.0f, "0.0000"},
        // The amount field's text reads as far as it is a number.
        {"12abc", euro, 2.0f, "24.0000"},
        {"", euro, 2.0f, "0.0000"},
    };
    for (const Case& c : cases) {
        const float result = ConvertCurrency(readCurrencyNumber(c.amount), c.from, c.to);
        EXPECT_EQ(formatCurrencyAmount(result), c.shown)
            << c.amount << " from " << c.from << " to " << c.to;
    }
}

TEST(CurrencyConversionTest, ReadsNumbersLikeTheCLibrary) {
    struct Case {
        const char* text;
        float value;
    };
    const Case cases[] = {
        {"1.0844", 1.0844f},
        {"  \t+2.5", 2.5f},
        {"-0.75xyz", -0.75f},
        {".5", 0.5f},
        {"1e3", 1000.0f},
        {"1.5E-2", 0.015f},
        {"2e", 2.0f},
        {"1,5", 1.0f},
        {"N/A", 0.0f},
        {".", 0.0f},
        {"0x1A", 0.0f},
        {"1e-400", 0.0f},
        {"0.000000000000000000000000000000000000000000000001e-300", 0.0f},
        {"1e39", INFINITY},
        {"-1e400", -INFINITY},
        // Beyond the largest float, the narrowing gives infinity.
        {"3.4e38", 3.4e38f},
        {"3.41e38", INFINITY},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(readCurrencyNumber(c.text), c.value) << c.text;
    }
}

} // namespace
} // namespace zonara

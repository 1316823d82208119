#include "tools/CCalculator.h"

#include <cmath>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace zonara {
namespace {

// Presses space-separated key names; the names go through the same lookup as
// the command line, so an unknown name fails the test.
std::string press(CCalculator& calc, const std::string& keys) {
    std::istringstream names(keys);
    std::string name;
    while (names >> name) {
        const auto key = calculatorKeyByName(name);
        if (!key) {
            ADD_FAILURE() << "no key named " << name;
            return {};
        }
        calc.Key(*key);
    }
    return calc.DisplayText();
}

TEST(CCalculatorKeys, SequencesGiveTheDisplay) {
    struct Case {
        const char* keys;
        const char* display;
    };
    const Case cases[] = {
        {"", "0"},
        // Typing: a leading zero goes, "." alone becomes "0.", and "0.0" counts as zero too.
        {".", "0."},
        {"0 5", "5"},
        {"0 0 7", "7"},
        {". 5", "0.5"},
        {"0 . 0", "0.0"},
        {"0 . 0 5", "5"},
        {"1 . . 5", "1..5"},
        {"1 2 3 4 5 6 7 8 9 0", "1234567890"},
        // The operator just pressed carries out the pending calculation.
        {"2 + 3 x", "6"},
        {"7 - 2 +", "9"},
        {"1 + 2 + 3 +", "6"},
        {"8 ÷ 2 -", "6"},
        {"8 ÷ 2 - 1 x", "6"},
        // An operator pressed again on a fresh number is ignored; another one evaluates.
        {"5 + +", "5"},
        {"5 + + =", "10"},
        {"5 + -", "0"},
        {"5 x x 3 =", "15"},
        // After an operator's evaluation the current value is the result itself.
        {"2 + 3 x =", "36"},
        {"2 + 3 =", "5"},
        {"2 - 5 =", "-3"},
        {"1 0 - 2 . 5 =", "7.5"},
        {"1 / 3 =", "0.33333333333333"},
        {"2 / 3 =", "0.66666666666667"},
        {"0 . 1 + 0 . 2 =", "0.3"},
        {"1 + 2 = 4", "4"},
        {"x 3 =", "0"},
        // Equals with nothing pending shows the accumulator.
        {"1 2 =", "0"},
        {"4 + 1 = 7 =", "5"},
        // Clear leaves the pending operator, with the accumulator at zero.
        {"5 + C", "0"},
        {"5 + C 3 =", "3"},
        {"5 x C 3 =", "0"},
        {"9 - C 4 =", "-4"},
        // Backspace.
        {"1 2 3 back", "12"},
        {"1 2 . 3 4 « «", "12."},
        {"5 back", "0"},
        {"5 back 7", "7"},
        {"2 + 3 = back", "0"},
        {"4 5 + 6 = back", "5"},
        {"4 5 + 6 = back 1", "1"},
        // Unary keys show their result and let digits extend it.
        {"4 1/x", "0.25"},
        {"2 . 5 +/-", "-2"},
        {"2 . 5 +/- 5", "-25"},
        {"9 sqrt", "3"},
        {"9 sqrt 5", "35"},
        {"2 sqrt", "1.41421353816986"}, // rooted in single precision
        {"1 6 sqrt sqrt", "2"},
        {"3 + 4 sqrt =", "5"},
        {"3 +/- x 2 =", "-6"},
        // Nothing is guarded.
        {"1 / 0 =", "inf"},
        {"1 +/- / 0 =", "-2147483648"},
        {"0 / 0 =", "0"},
        {"0 1/x", "inf"},
        {"0 1/x 5", "inf5"},
        {"4 +/- sqrt", "0"},
        // Memory stores the display text and recalls it as typed input.
        {"1 2 . 5 M+ C 7 MR", "12.5"},
        {"1 2 . 5 0 M+ 3 + MR", "12.50"},
        {"7 MR", "7"},
        {"3 M+ MC C 9 MR", "9"},
        {"3 M+ 9", "39"},
        {"1 2 M+ C MR 3", "123"},
        {"2 + 3 = M+ C 1 + MR =", "6"},
        {". M+ 8 MR", "0."},
    };
    for (const Case& c : cases) {
        CCalculator calc;
        EXPECT_EQ(press(calc, c.keys), c.display) << c.keys;
    }
}

TEST(CCalculatorKeys, StateBehindTheDisplay) {
    CCalculator calc;
    press(calc, "5 + C");
    EXPECT_EQ(calc.pendingOperator(), PendingOp::Add);
    EXPECT_EQ(calc.accumulatorValue(), 0);
    press(calc, "3 =");
    EXPECT_EQ(calc.pendingOperator(), PendingOp::None);
    EXPECT_TRUE(calc.startsNewNumber());

    // The memory holds the text, not its value.
    press(calc, "0 . 0 M+");
    EXPECT_EQ(calc.memoryText(), "0.0");
    press(calc, "MC");
    EXPECT_EQ(calc.memoryText(), "");

    // "1..5" shows as typed but counts as 1; the value after a unary key is full precision.
    CCalculator typed;
    press(typed, "1 . . 5");
    EXPECT_EQ(typed.currentValue(), 1.0);
    press(typed, "C 2 +/- . 5");
    EXPECT_EQ(typed.currentValue(), -2.5);
    CCalculator reciprocal;
    press(reciprocal, "3 1/x");
    EXPECT_EQ(reciprocal.currentValue(), 0.33333333333333);

    // Keys outside the pad and the conversion key leave everything as it was.
    CCalculator other;
    press(other, "4 2");
    for (int key : {-1, 17, 25, 7000})
        other.Key(key);
    EXPECT_EQ(other.DisplayText(), "42");
    EXPECT_EQ(other.currentValue(), 42);

    // SetValue, as a conversion uses it: the number shown, typing starts afresh only if it would.
    CCalculator converted;
    converted.SetValue(100.00000762939453);
    EXPECT_EQ(converted.DisplayText(), "100.00000762939453");
    EXPECT_EQ(converted.currentValue(), 100.00000762939453);
}

TEST(CCalculatorKeys, TypingStopsAt201Characters) {
    CCalculator calc;
    for (int i = 0; i < 200; ++i)
        calc.Key(1);
    EXPECT_EQ(calc.DisplayText().size(), 200u);
    calc.Key(15);
    EXPECT_EQ(calc.DisplayText().size(), 201u);
    EXPECT_EQ(calc.DisplayText().back(), '.');
    for (int i = 0; i < 30; ++i)
        calc.Key(7);
    EXPECT_EQ(calc.DisplayText(), std::string(200, '1') + ".");
    // Backspace makes room for one more.
    press(calc, "back 9 9");
    EXPECT_EQ(calc.DisplayText(), std::string(200, '1') + "9");
    // Recalled text is not cut, as it replaces the display.
    press(calc, "M+ C MR");
    EXPECT_EQ(calc.DisplayText().size(), 201u);
}

TEST(CCalculatorFormat, FormatNumber) {
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {5.0, "5"},
        {-7.0, "-7"},
        {2.5, "2.5"},
        {-2.5, "-2"},
        {0.1, "0.1"},
        {1.0 / 3, "0.33333333333333"},
        {100.00000762939453, "100.00000762939453"},
        {0.025399986284007407, "0.02539998628401"},
        {1e-15, "0.0"},
        {0.999999999999999, "1.0"},
        {2147483647.5, "2147483647.5"},
        {2147483647.0, "2147483647"},
        {1e10, "10000000000.0"},
        {-1e10, "-2147483648"},
        {inf, "inf"},
        {-inf, "-2147483648"},
        {std::nan(""), "0"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CCalculator::FormatNumber(c.value), c.text) << c.value;
}

TEST(CCalculatorFormat, ParseNumberReadsLikeAtof) {
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"12.5", 12.5}, {"  7", 7},   {"+3", 3},       {"-4.5", -4.5}, {"0.", 0},   {".", 0},
        {"1..5", 1},    {"inf", inf}, {"inf5", inf},   {"abc", 0},     {"", 0},     {"+-1", 0},
        {"1e3", 1000},  {"n\\a", 0},  {"12.50", 12.5}, {"-", 0},       {"5 km", 5}, {"0.0", 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(atofValue(c.text), c.value) << c.text;
}

TEST(CCalculatorNames, KeysByFaceOrName) {
    struct Case {
        const char* name;
        int key; // -1: unknown
    };
    const Case cases[] = {
        {"0", 0},   {"7", 7},     {"9", 9},     {"÷", 10},    {"/", 10},   {"x", 11},
        {"X", 11},  {"+", 12},    {"-", 13},    {"=", 14},    {".", 15},   {"C", 16},
        {"c", 16},  {"«", 18},    {"back", 18}, {"BACK", 18}, {"MC", 19},  {"mr", 20},
        {"M+", 21}, {"sqrt", 22}, {"SQRT", 22}, {"1/x", 23},  {"+/-", 24}, {"CON", -1},
        {"", -1},   {"10", -1},   {"*", -1},    {"xx", -1},   {"m-", -1},  {" 1", -1},
    };
    for (const Case& c : cases) {
        const auto key = calculatorKeyByName(c.name);
        EXPECT_EQ(key.value_or(-1), c.key) << c.name;
    }
}

} // namespace
} // namespace zonara

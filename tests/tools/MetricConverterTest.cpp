#include "tools/MetricConverter.h"

#include <string>

#include <gtest/gtest.h>

namespace zonara {
namespace {

// Types a number digit by digit, as on the pad.
void type(MetricConverter& converter, std::string_view number) {
    for (char c : number)
        converter.pressKey(c == '.' ? keypadKey::point : c - '0');
}

TEST(MetricConverter, ConversionKey) {
    enum { g, kg, t, oz, lb, tons };
    struct Case {
        UnitCategory category;
        const char* typed;
        int from, to;
        ConvertOutcome outcome;
        const char* display;
        const char* result;
    };
    const Case cases[] = {
        {UnitCategory::Weight, "5", g, t, ConvertOutcome::CannotConvert, "n\\a", ""},
        {UnitCategory::Weight, "2.5", oz, tons, ConvertOutcome::CannotConvert, "n\\a", ""},
        {UnitCategory::Volume, "7", 1, 2, ConvertOutcome::CannotConvert, "n\\a", ""}, // cc, m³
        {UnitCategory::Weight, "3", kg, lb, ConvertOutcome::Converted, "6.61386", "6.6138600 (lb)"},
        {UnitCategory::Weight, "2", kg, g, ConvertOutcome::Converted, "2000", "2000 (g)"},
        {UnitCategory::Weight, "2", tons, tons, ConvertOutcome::Converted, "2", "2 tons"},
        {UnitCategory::Angle, "180", 1, 2, ConvertOutcome::Converted, "180", "180 grads"},
        {UnitCategory::Angle, "57.3", 2, 1, ConvertOutcome::Converted, "0", "0 (deg)"},
        {UnitCategory::Temperature, "212", 2, 1, ConvertOutcome::Converted, "100.00000762939453",
         "100.0000076 (°C)"},
        {UnitCategory::Temperature, "0", 0, 2, ConvertOutcome::Converted, "-459",
         "-459.6700000 (°F)"},
        {UnitCategory::Length, "1", 3, 2, ConvertOutcome::Converted, "0.02539998628401",
         "0.0254000 (m)"},
        // The displayed number is narrowed to single precision before the factor.
        {UnitCategory::Distance, "3.7", 1, 0, ConvertOutcome::Converted, "5.95455807673931",
         "5.9545581 (km)"},
        {UnitCategory::Area, "1", 1, 4, ConvertOutcome::Converted, "2.46914", "2.4691400 acres"},
        {UnitCategory::Pressure, "1", 0, 2, ConvertOutcome::Converted, "1000", "1000 Pa"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(categoryName(c.category)) + " " + c.typed);
        MetricConverter converter;
        converter.selectCategory(c.category);
        converter.setFromUnit(c.from);
        converter.setToUnit(c.to);
        type(converter, c.typed);
        EXPECT_EQ(converter.convert(), c.outcome);
        EXPECT_EQ(converter.displayText(), c.display);
        EXPECT_EQ(converter.resultText(), c.result);
    }
}

TEST(MetricConverter, SelectionAndFollowingKeys) {
    MetricConverter converter;
    EXPECT_EQ(converter.category(), UnitCategory::Distance);
    type(converter, "12");
    // Without both units chosen the key does nothing.
    converter.setFromUnit(0);
    converter.pressKey(keypadKey::convert);
    EXPECT_EQ(converter.displayText(), "12");
    EXPECT_EQ(converter.resultText(), "");
    converter.setToUnit(5); // not a distance unit
    EXPECT_EQ(converter.convert(), ConvertOutcome::NoSelection);

    // Choosing a category empties both lists' selections.
    converter.selectCategory(UnitCategory::Speed);
    EXPECT_EQ(converter.table().UnitName(3), "knots (kt)");
    EXPECT_FALSE(converter.fromUnitIndex());
    EXPECT_FALSE(converter.toUnitIndex());
    EXPECT_EQ(converter.convert(), ConvertOutcome::NoSelection);

    // The converted number is the engine's: operators use it, and the result
    // line clears on the next key.
    converter.setFromUnit(0); // m/s
    converter.setToUnit(1);   // km/h
    converter.pressKey(keypadKey::convert);
    EXPECT_EQ(converter.displayText(), "43.2");
    EXPECT_EQ(converter.resultText(), "43.2000000 (km/h)");
    converter.pressKey(keypadKey::add);
    EXPECT_EQ(converter.resultText(), "");
    type(converter, "1");
    converter.pressKey(keypadKey::equals);
    EXPECT_EQ(converter.displayText(), "44.2");
    EXPECT_EQ(converter.calculator().currentValue(), 44.2);

    // A pair that cannot convert shows "n\a" but leaves the engine as it
    // was: the next key goes on from its number.
    converter.selectCategory(UnitCategory::Volume);
    converter.setFromUnit(2);
    converter.setToUnit(1);
    converter.pressKey(keypadKey::convert);
    EXPECT_EQ(converter.resultText(), "");
    EXPECT_EQ(converter.displayText(), "n\\a");
    EXPECT_EQ(converter.calculator().DisplayText(), "44.2");
    converter.pressKey(keypadKey::add);
    EXPECT_EQ(converter.displayText(), "44.2");
    type(converter, "1");
    converter.pressKey(keypadKey::equals);
    EXPECT_EQ(converter.displayText(), "45.2");

    // Given values convert the same way, for callers without a pad.
    converter.setToUnit(0);
    EXPECT_EQ(converter.convertValue(0.5), ConvertOutcome::Converted);
    EXPECT_EQ(converter.displayText(), "500");
}

TEST(MetricConverter, SuffixedValue) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {180, "180 grads"},
        {-3, "-3 grads"},
        {0.5, "0.5000000 grads"},
        {-0.25, "-0.2500000 grads"},
        {1e-9, "0.0000000 grads"},
        {2.00000004, "2.0000000 grads"},
        {1e12, "1000000000000 grads"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(suffixedValue(c.value, "grads"), c.text) << c.value;
}

} // namespace
} // namespace zonara

#include "tools/UnitLookup.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(UnitLookup, FindsThePairAndItsTable) {
    const UnitTables tables;
    const auto all = categoryTables(tables);
    ASSERT_EQ(all.size(), std::size_t(unitCategoryCount));
    struct Case {
        const char* from;
        const char* to;
        std::optional<const char*> category;
        ConversionPair pair;
    };
    const Case cases[] = {
        {"km", "miles", {}, {UnitCategory::Distance, 0, 1}},
        {"KM", "(NM)", {}, {UnitCategory::Distance, 0, 2}},
        {"kilometers", "nautical miles", {}, {UnitCategory::Distance, 0, 2}},
        {"kilometers (km)", "Miles", {}, {UnitCategory::Distance, 0, 1}},
        {"in", "m", {}, {UnitCategory::Length, 3, 2}},
        {"centremeters", "yd", {}, {UnitCategory::Length, 1, 5}},
        {"m2", "acres", {}, {UnitCategory::Area, 0, 4}},
        {"ft²", "HA", {}, {UnitCategory::Area, 2, 1}},
        {"m3", "l", {}, {UnitCategory::Volume, 2, 0}},
        {"fl oz", "US gallons", {}, {UnitCategory::Volume, 3, 6}},
        {"g", "t", {}, {UnitCategory::Weight, 0, 2}},
        {"tons", "lb", "weight", {UnitCategory::Weight, 5, 4}},
        {"km/h", "kt", {}, {UnitCategory::Speed, 1, 3}},
        {"mbar", "psi", {}, {UnitCategory::Pressure, 1, 4}},
        {"millibar", "pascal", {}, {UnitCategory::Pressure, 1, 2}},
        {"Nm", "ft lb", {}, {UnitCategory::Torque, 0, 2}},
        {"deg", "grads", {}, {UnitCategory::Angle, 1, 2}},
        {"F", "°C", {}, {UnitCategory::Temperature, 2, 1}},
        {"degress fahrenheit", "K", "TEMPERATURE", {UnitCategory::Temperature, 2, 0}},
        {"kelvin", "kelvin", {}, {UnitCategory::Temperature, 0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.from) + " -> " + c.to);
        const ConversionLookup found = findConversion(all, c.from, c.to, c.category);
        ASSERT_TRUE(std::holds_alternative<ConversionPair>(found))
            << std::get<LookupError>(found).message();
        EXPECT_EQ(std::get<ConversionPair>(found), c.pair);
    }
}

TEST(UnitLookup, FailuresSayWhy) {
    const UnitTables tables;
    const auto all = categoryTables(tables);
    // The distance table standing in for a second category makes every name in it ambiguous.
    const std::vector<CategoryTable> twice{all[0], {UnitCategory::Speed, all[0].table}};
    struct Case {
        std::vector<CategoryTable> tables;
        const char* from;
        const char* to;
        std::optional<const char*> category;
        LookupFailure failure;
        const char* message;
    };
    const Case cases[] = {
        {all, "furlong", "km", {}, LookupFailure::UnknownUnit, "unknown unit 'furlong'"},
        {all, "km", "", {}, LookupFailure::UnknownUnit, "unknown unit ''"},
        {all,
         "km",
         "kg",
         {},
         LookupFailure::NoCommonCategory,
         "no category holds both of 'km' and 'kg'"},
        {all, "km", "miles", "Length", LookupFailure::UnknownUnit, "unknown unit 'km'"},
        {all, "km", "miles", "Toque", LookupFailure::UnknownCategory,
         "unknown category 'Toque' (one of: Distance, Length, Area, Volume, Weight, Speed, "
         "Pressure, Torque, Angle, Temperature)"},
        {all,
         "gal",
         "l",
         {},
         LookupFailure::AmbiguousUnit,
         "'gal' could be: gallons (gal), US gallons (gal)"},
        {all,
         "l",
         "(gal)",
         {},
         LookupFailure::AmbiguousUnit,
         "'(gal)' could be: gallons (gal), US gallons (gal)"},
        {twice,
         "km",
         "NM",
         {},
         LookupFailure::AmbiguousCategory,
         "'km' and 'NM' are in several categories (Distance, Speed): choose one with "
         "--category"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.from) + " -> " + c.to);
        const ConversionLookup found = findConversion(c.tables, c.from, c.to, c.category);
        ASSERT_TRUE(std::holds_alternative<LookupError>(found));
        const LookupError& error = std::get<LookupError>(found);
        EXPECT_EQ(error.failure, c.failure);
        EXPECT_EQ(error.message(), c.message);
    }
    // Naming the category settles it.
    EXPECT_EQ(std::get<ConversionPair>(findConversion(twice, "km", "NM", "speed")),
              (ConversionPair{UnitCategory::Speed, 0, 2}));
}

} // namespace
} // namespace zonara

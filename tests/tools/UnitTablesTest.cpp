#include "tools/UnitTables.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

namespace zonara {
namespace {

// The conversion matrices as the measurement sheet gives them, row = from,
// column = to, with the sheet's own minus sign on the pairs that cannot convert.
struct Sheet {
    UnitCategory category;
    const char* className;
    const char* units; // long names; suffixes
    const char* matrix;
};

const Sheet sheets[] = {
    {UnitCategory::Distance, "CTableDistance",
     "kilometers (km), miles, nautical miles (NM); suffixes (km), miles, (NM)",
     R"(| from\to | km | miles | NM |
|---|---|---|---|
| km | 1.0 | 0.6213727366498067 | 0.5399568034557235 |
| miles | 1.60934 | 1.0 | 0.868975825092546 |
| NM | 1.852 | 1.15078 | 1.0 |)"},
    {UnitCategory::Length, "CTableLength",
     "millimeters (mm), centremeters (cm), meters (m), inches (in), feet (ft), yards (yd); "
     "suffixes (mm), (cm), (m), (in), (ft), (yd)",
     R"(| from\to | mm | cm | m | in | ft | yd |
|---|---|---|---|---|---|---|
| mm | 1.0 | 0.1 | 0.001 | 0.03937007874015748 | 0.0032808398950131233 | 0.0010936132983377078 |
| cm | 10.0 | 1.0 | 0.01 | 0.39370078740157477 | 0.03280839895013123 | 0.010936132983377079 |
| m | 1000.0 | 100.0 | 1.0 | 39.3701 | 3.28084 | 1.09361 |
| in | 25.4 | 2.54 | 0.025399986284007407 | 1.0 | 0.08333333333333333 | 0.027777777777777776 |
| ft | 304.8 | 30.48 | 0.3047999902464003 | 12.0 | 1.0 | 0.3333333333333333 |
| yd | 914.4 | 91.44 | 0.9144027578387177 | 36.0 | 3.0 | 1.0 |)"},
    {UnitCategory::Area, "CTableArea",
     "square meters (m²), hectares (ha), square feet (ft²), square yards (yd²), acres; suffixes "
     "(m²), (ha), (ft²), (yd²), acres",
     R"(| from\to | m² | ha | ft² | yd² | acres |
|---|---|---|---|---|---|
| m² | 1.0 | 0.0001 | 10.7639 | 1.19599 | 0.0002469135802469136 |
| ha | 10000.0 | 1.0 | 107639.0 | 11959.9 | 2.46914 |
| ft² | 0.09290312990644656 | 9.290312990644655e-06 | 1.0 | 0.1111111111111111 | 2.2939041790346332e-05 |
| yd² | 0.8361273923695013 | 8.361273923695015e-05 | 9.0 | 1.0 | 0.00020645118668142105 |
| acres | 4050.0 | 0.40499931150117047 | 43593.8 | 4843.76 | 1.0 |)"},
    {UnitCategory::Volume, "CTableVolume",
     "litres (l), cubic centimeters (cc), cubic meters (m³), fluid ounces (fl oz), pint (pt), "
     "gallons (gal), US gallons (gal); suffixes (l), (cc), (m³), (fl oz), (pt), (gal), (gal)",
     R"(| from\to | l | cc | m³ | fl oz | pt | gal | US gal |
|---|---|---|---|---|---|---|---|
| l | 1.0 | 1000.0 | 0.001 | 33.814 | 1.76056 | 0.21978021978021978 | 0.26419102067558925 |
| cc | 0.001 | 1.0 | −1.0 | 0.03381405650328842 | 0.0017605633802816902 | 0.00021978021978021978 | 0.000264172176857989 |
| m³ | 1000.0 | −1.0 | 1.0 | 33842.0 | 1760.56 | 219.78 | 264.172 |
| fl oz | 0.029573549417401077 | 29.5735 | 2.9549081023580167e-05 | 1.0 | 0.05206597800733089 | 0.006499668516905637 | 0.0078125 |
| pt | 0.5680010905620939 | 568.0 | 0.0005680010905620939 | 19.2064 | 1.0 | 0.124835217512883 | 0.1500496664395915 |
| gal | 4.55 | 4550.0 | 0.00455000455000455 | 153.854 | 8.01056 | 1.0 | 1.20198 |
| US gal | 3.78514 | 3785.41 | 0.003785412534257983 | 128.0 | 6.66446 | 0.8319605983460623 | 1.0 |)"},
    {UnitCategory::Weight, "CTableWeight",
     "grams (g), kilograms (kg), metric tonnes (t), ounces (oz), pounds (lb), tons; suffixes (g), "
     "(kg), (t), (oz), (lb), tons",
     R"(| from\to | g | kg | t | oz | lb | tons |
|---|---|---|---|---|---|---|
| g | 1.0 | 0.001 | −1.0 | 0.03527399072294044 | 0.0022046244201837776 | −1.0 |
| kg | 1000.0 | 1.0 | 0.001 | 35.274 | 2.20462 | 0.000984251968503937 |
| t | −1.0 | 1000.0 | 1.0 | −1.0 | 2204.62 | 0.984251968503937 |
| oz | 28.3495 | 0.02834949254408346 | −1.0 | 1.0 | 0.0625 | −1.0 |
| lb | 453.592 | 0.45359290943563974 | 0.0004535929094356397 | 16.0 | 1.0 | 0.00044644850216527524 |
| tons | −1.0 | 1016.0 | 1.016 | −1.0 | 2239.9 | 1.0 |)"},
    {UnitCategory::Speed, "CTableSpeed",
     "meters per second (m/s), kilometers per hour (km/h), miles per hour (mph), knots (kt); "
     "suffixes (m/s), (km/h), (mph), (kt)",
     R"(| from\to | m/s | km/h | mph | kt |
|---|---|---|---|---|
| m/s | 1.0 | 3.6 | 2.23694 | 1.94384 |
| km/h | 0.2777777777777778 | 1.0 | 0.6213727366498067 | 0.5399568034557235 |
| mph | 0.4470392589877243 | 1.60934 | 1.0 | 0.868975825092546 |
| kt | 0.5144456333854638 | 1.852 | 1.15078 | 1.0 |)"},
    {UnitCategory::Pressure, "CTablePressure",
     "kilopascal (kPa), millibar, pascal (Pa), bar, pounds per square inch (psi); suffixes (kPa), "
     "mbar, Pa, bar, (psi)",
     R"(| from\to | kPa | mbar | Pa | bar | psi |
|---|---|---|---|---|---|
| kPa | 1.0 | 10.0 | 1000.0 | 0.01 | 0.14513451066448385 |
| mbar | 0.1 | 1.0 | 100.0 | 0.001 | 0.014513451066448383 |
| Pa | 0.001 | 0.01 | 1.0 | 1e-05 | 0.000145 |
| bar | 100.0 | 1000.0 | 100000.0 | 1.0 | 14.5 |
| psi | 6.89016 | 68.9016 | 6895.0 | 0.06895 | 1.0 |)"},
    {UnitCategory::Torque, "CTableToque",
     "newton meters (Nm), inch pounds (in lb), foot pounds (ft lb); suffixes (Nm), (in lb), (ft "
     "lb)",
     R"(| from\to | Nm | in lb | ft lb |
|---|---|---|---|
| Nm | 1.0 | 8.85666 | 0.7380564022702615 |
| in lb | 0.11290938118884546 | 1.0 | 0.08333333333333333 |
| ft lb | 1.35491 | 12.0 | 1.0 |)"},
    {UnitCategory::Angle, "CTableAngle",
     "radians (rad), degrees (deg), grads; suffixes (rad), (deg), grads",
     R"(| from\to | rad | deg | grads |
|---|---|---|---|
| rad | 1.0 | 57.29577951308232 | 63.66197723675814 |
| deg | 0.017453292519943295 | 1.0 | 1.0 |
| grads | 0.015707963267948967 | 0.0 | 1.0 |)"},
};

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    for (;;) {
        const auto at = text.find(separator);
        parts.emplace_back(text.substr(0, at));
        if (at == std::string_view::npos)
            return parts;
        text.remove_prefix(at + separator.size());
    }
}

std::string trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return std::string(text);
}

double sheetNumber(std::string text) {
    if (text.starts_with("−"))
        text.replace(0, std::string_view("−").size(), "-");
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    EXPECT_EQ(*end, '\0') << "not a number: " << text;
    return value;
}

std::vector<std::vector<double>> sheetFactors(std::string_view matrix) {
    std::vector<std::vector<double>> rows;
    const std::vector<std::string> lines = split(matrix, "\n");
    for (std::size_t i = 2; i < lines.size(); ++i) {
        std::vector<std::string> cells = split(lines[i], "|");
        // Drop the empty ends and the row's unit.
        std::vector<double> row;
        for (std::size_t c = 2; c + 1 < cells.size(); ++c)
            row.push_back(sheetNumber(trimmed(cells[c])));
        rows.push_back(row);
    }
    return rows;
}

TEST(UnitTables, EveryFactorAndNameAsOnTheSheet) {
    const UnitTables tables;
    for (const Sheet& sheet : sheets) {
        SCOPED_TRACE(sheet.className);
        const CTable& table = tables.table(sheet.category);
        EXPECT_NE(std::string_view(typeid(table).name()).find(sheet.className),
                  std::string_view::npos)
            << typeid(table).name();

        const std::vector<std::string> halves = split(sheet.units, "; suffixes ");
        ASSERT_EQ(halves.size(), 2u);
        const std::vector<std::string> names = split(halves[0], ", ");
        const std::vector<std::string> suffixes = split(halves[1], ", ");
        const auto factors = sheetFactors(sheet.matrix);
        const int n = table.UnitCount();
        ASSERT_EQ(std::size_t(n), factors.size());
        ASSERT_EQ(std::size_t(n), names.size());
        ASSERT_EQ(std::size_t(n), suffixes.size());
        for (int from = 0; from < n; ++from) {
            EXPECT_EQ(table.UnitName(from), names[std::size_t(from)]);
            EXPECT_EQ(table.UnitSuffix(from), suffixes[std::size_t(from)]);
            ASSERT_EQ(factors[std::size_t(from)].size(), std::size_t(n));
            for (int to = 0; to < n; ++to) {
                const double factor = factors[std::size_t(from)][std::size_t(to)];
                SCOPED_TRACE(std::to_string(from) + " -> " + std::to_string(to));
                EXPECT_EQ(table.CanConvert(from, to), factor != -1.0);
                // Bit for bit: the value is widened, then multiplied in double.
                EXPECT_EQ(table.Convert(1.0f, from, to), factor);
                EXPECT_EQ(table.Convert(0.1f, from, to), double(0.1f) * factor);
            }
        }
        // Out of range: no name, no conversion, the value back.
        EXPECT_EQ(table.UnitName(n), "");
        EXPECT_EQ(table.UnitSuffix(-1), "");
        EXPECT_FALSE(table.CanConvert(0, n));
        EXPECT_FALSE(table.CanConvert(-1, 0));
        EXPECT_EQ(table.Convert(2.5f, n, 0), 2.5);
    }
}

TEST(UnitTables, TemperatureByFormula) {
    const UnitTables tables;
    const CTable& t = tables.table(UnitCategory::Temperature);
    EXPECT_NE(dynamic_cast<const CTableTemperature*>(&t), nullptr);
    ASSERT_EQ(t.UnitCount(), 3);
    const std::pair<std::string_view, std::string_view> units[] = {
        {"Kelvin (K)", "(K)"},
        {"degrees celcius (°C)", "(°C)"},
        {"degress fahrenheit (°F)", "(°F)"},
    };
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(t.UnitName(i), units[i].first);
        EXPECT_EQ(t.UnitSuffix(i), units[i].second);
        for (int j = 0; j < 3; ++j)
            EXPECT_TRUE(t.CanConvert(i, j));
    }
    enum { K, C, F };
    struct Case {
        float value;
        int from, to;
        double result;
    };
    const Case cases[] = {
        // From Fahrenheit the offset and the 5/9 are single precision.
        {212.0f, F, C, 100.00000762939453},
        {212.0f, F, K, 373.1500076293945},
        {98.6f, F, C, 37.0},
        {98.6f, F, K, 310.15},
        {-40.0f, F, C, -40.0},
        {0.0f, F, K, 255.3722213745117},
        // The rest in double, from the narrowed value.
        {0.0f, K, C, -273.15},
        {0.0f, K, F, -459.66999999999996},
        {300.5f, K, C, 27.350000000000023},
        {300.5f, K, F, 81.23000000000005},
        {20.0f, C, K, 293.15},
        {37.0f, C, F, 98.60000000000001},
        {36.6f, C, F, 97.87999725341797},
        {36.6f, C, K, 309.74999847412107},
        {36.6f, C, C, 36.599998474121094},
        {-5.5f, F, F, -5.5},
        // An index out of range gives the value.
        {36.6f, 3, C, 36.599998474121094},
        {12.0f, K, 3, 12.0},
        {12.0f, -1, F, 12.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(t.Convert(c.value, c.from, c.to), c.result)
            << c.value << " " << c.from << "->" << c.to;
}

TEST(UnitTables, CategoriesInMenuOrder) {
    const char* labels[] = {"Distance", "Length",   "Area",   "Volume", "Weight",
                            "Speed",    "Pressure", "Torque", "Angle",  "Temperature"};
    const UnitTables tables;
    for (int i = 0; i < unitCategoryCount; ++i)
        EXPECT_EQ(categoryName(UnitCategory(i)), labels[i]);
    // Each category has a table of its own.
    for (int i = 0; i < unitCategoryCount; ++i)
        for (int j = i + 1; j < unitCategoryCount; ++j)
            EXPECT_NE(&tables.table(UnitCategory(i)), &tables.table(UnitCategory(j)));
}

} // namespace
} // namespace zonara

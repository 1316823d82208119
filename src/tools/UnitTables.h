#pragma once
// The ten unit tables, one per category, and the categories in menu order.

#include <array>
#include <string_view>

#include "tools/CTable.h"
#include "tools/UnitMatrices.h"

namespace zonara {

class CTableDistance final : public MatrixTable<3> {
  public:
    CTableDistance() : MatrixTable(unitMatrices::distance) {}
};
class CTableLength final : public MatrixTable<6> {
  public:
    CTableLength() : MatrixTable(unitMatrices::length) {}
};
class CTableArea final : public MatrixTable<5> {
  public:
    CTableArea() : MatrixTable(unitMatrices::area) {}
};
class CTableVolume final : public MatrixTable<7> {
  public:
    CTableVolume() : MatrixTable(unitMatrices::volume) {}
};
class CTableWeight final : public MatrixTable<6> {
  public:
    CTableWeight() : MatrixTable(unitMatrices::weight) {}
};
class CTableSpeed final : public MatrixTable<4> {
  public:
    CTableSpeed() : MatrixTable(unitMatrices::speed) {}
};
class CTablePressure final : public MatrixTable<5> {
  public:
    CTablePressure() : MatrixTable(unitMatrices::pressure) {}
};
class CTableToque final : public MatrixTable<3> {
  public:
    CTableToque() : MatrixTable(unitMatrices::torque) {}
};
class CTableAngle final : public MatrixTable<3> {
  public:
    CTableAngle() : MatrixTable(unitMatrices::angle) {}
};

// Kelvin, degrees Celsius and degrees Fahrenheit, converted by formula; every
// pair converts.
class CTableTemperature final : public CTable {
  public:
    double Convert(float value, int from, int to) const override;
    bool CanConvert(int, int) const override { return true; }
    int UnitCount() const override { return 3; }
    std::string_view UnitName(int index) const override;
    std::string_view UnitSuffix(int index) const override;
};

// Categories in menu order.
enum class UnitCategory {
    Distance,
    Length,
    Area,
    Volume,
    Weight,
    Speed,
    Pressure,
    Torque,
    Angle,
    Temperature
};
inline constexpr int unitCategoryCount = 10;

// The category label's text.
inline constexpr std::array<std::string_view, unitCategoryCount> unitCategoryNames{
    "Distance", "Length",   "Area",   "Volume", "Weight",
    "Speed",    "Pressure", "Torque", "Angle",  "Temperature"};

constexpr std::string_view categoryName(UnitCategory category) {
    return unitCategoryNames[std::size_t(category)];
}

// One object of each table, as a converter dialog holds them.
class UnitTables {
  public:
    const CTable& table(UnitCategory category) const;

  private:
    CTableDistance distance;
    CTableLength length;
    CTableArea area;
    CTableVolume volume;
    CTableWeight weight;
    CTableSpeed speed;
    CTablePressure pressure;
    CTableToque torque;
    CTableAngle angle;
    CTableTemperature temperature;
};

} // namespace zonara

#pragma once
// A category of units that converts between its members: the base of the ten unit tables.

#include <array>
#include <cstddef>
#include <string_view>

namespace zonara {

class CTable {
  public:
    virtual ~CTable() = default;

    // Converts a value narrowed to single precision from one unit to another.
    virtual double Convert(float value, int from, int to) const = 0;
    virtual bool CanConvert(int from, int to) const = 0;
    virtual int UnitCount() const = 0;
    // The long name shown in the unit lists, "" for an index out of range.
    virtual std::string_view UnitName(int index) const = 0;
    // The short text written after a converted value, "" for an index out of range.
    virtual std::string_view UnitSuffix(int index) const = 0;

  protected:
    CTable() = default;
    CTable(const CTable&) = default;
    CTable& operator=(const CTable&) = default;
};

struct Unit {
    std::string_view name;
    std::string_view suffix;
};

template <std::size_t N> struct FactorTable {
    std::array<Unit, N> units;
    // factor[from][to]; 1.0 on the diagonal, -1.0 where the pair cannot be converted.
    std::array<std::array<double, N>, N> factor;
};

// A table whose conversions are one multiplication each.
template <std::size_t N> class MatrixTable : public CTable {
  public:
    explicit constexpr MatrixTable(const FactorTable<N>& table) : data(&table) {}

    // The factor is applied even to a pair that cannot be converted; callers
    // ask CanConvert first. An index out of range gives the value back.
    double Convert(float value, int from, int to) const override {
        if (!valid(from) || !valid(to))
            return double(value);
        return double(value) * data->factor[std::size_t(from)][std::size_t(to)];
    }
    bool CanConvert(int from, int to) const override {
        return valid(from) && valid(to) && data->factor[std::size_t(from)][std::size_t(to)] != -1.0;
    }
    int UnitCount() const override { return int(N); }
    std::string_view UnitName(int index) const override {
        return valid(index) ? data->units[std::size_t(index)].name : std::string_view();
    }
    std::string_view UnitSuffix(int index) const override {
        return valid(index) ? data->units[std::size_t(index)].suffix : std::string_view();
    }

  private:
    static constexpr bool valid(int index) { return index >= 0 && index < int(N); }

    const FactorTable<N>* data;
};

} // namespace zonara

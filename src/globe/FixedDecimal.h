#pragma once
// Signed fixed-point numbers in millionths, the arithmetic of the day/night shading.

#include <cstdint>

namespace zonara {

class FixedDecimal {
  public:
    static constexpr std::int32_t one = 1000000;

    constexpr FixedDecimal() = default;
    // n millionths of millionths: the multiplication wraps at 32 bits, so values beyond
    // +-2147 come out wrapped, as they always have.
    explicit FixedDecimal(int n);
    // floor((d + 5e-7) * 1e6): rounds half a millionth up. A value outside the 64-bit
    // range, or not a number, gives the lowest raw value.
    explicit FixedDecimal(double d);

    static constexpr FixedDecimal fromRaw(std::int32_t raw) {
        FixedDecimal f;
        f.value = raw;
        return f;
    }
    constexpr std::int32_t raw() const { return value; }
    // Truncated toward zero.
    int toInt() const { return value / one; }

    friend FixedDecimal operator+(FixedDecimal a, FixedDecimal b);
    friend FixedDecimal operator-(FixedDecimal a, FixedDecimal b);
    FixedDecimal operator-() const;
    // A 64-bit product scaled back down, truncated toward zero.
    friend FixedDecimal operator*(FixedDecimal a, FixedDecimal b);
    // Raw -1 when b is zero. A dividend whose raw value, read unsigned, is below 4294 is
    // scaled up in 32 bits, which wraps from raw 2148 on; the shading never divides such
    // small values.
    friend FixedDecimal operator/(FixedDecimal a, FixedDecimal b);
    friend bool operator<(FixedDecimal a, FixedDecimal b) { return a.value < b.value; }
    friend bool operator==(FixedDecimal a, FixedDecimal b) = default;

  private:
    std::int32_t value = 0;
};

} // namespace zonara

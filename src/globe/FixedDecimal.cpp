#include "globe/FixedDecimal.h"

#include <cmath>

namespace zonara {

namespace {

// Two's-complement wrap of the low 32 bits, without relying on signed overflow.
std::int32_t wrap32(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

std::int32_t wrap32(std::int64_t value) {
    return wrap32(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

} // namespace

FixedDecimal::FixedDecimal(int n)
    : value(wrap32(static_cast<std::uint32_t>(n) * static_cast<std::uint32_t>(one))) {}

FixedDecimal::FixedDecimal(double d) {
    const double scaled = std::floor((d + 5e-7) * 1e6);
    // The 64-bit conversion's own out-of-range answer is the lowest value.
    if (!(scaled >= -9.2233720368547758e18 && scaled < 9.2233720368547758e18)) {
        value = INT32_MIN;
        return;
    }
    value = wrap32(static_cast<std::int64_t>(scaled));
}

FixedDecimal operator+(FixedDecimal a, FixedDecimal b) {
    return FixedDecimal::fromRaw(
        wrap32(static_cast<std::uint32_t>(a.value) + static_cast<std::uint32_t>(b.value)));
}

FixedDecimal operator-(FixedDecimal a, FixedDecimal b) {
    return FixedDecimal::fromRaw(
        wrap32(static_cast<std::uint32_t>(a.value) - static_cast<std::uint32_t>(b.value)));
}

FixedDecimal FixedDecimal::operator-() const {
    return FixedDecimal() - *this;
}

FixedDecimal operator*(FixedDecimal a, FixedDecimal b) {
    const std::int64_t product = std::int64_t(a.value) * std::int64_t(b.value);
    return FixedDecimal::fromRaw(wrap32(product / FixedDecimal::one));
}

FixedDecimal operator/(FixedDecimal a, FixedDecimal b) {
    if (b.value == 0) {
        return FixedDecimal::fromRaw(-1);
    }
    if (static_cast<std::uint32_t>(a.value) >= 4294u) {
        return FixedDecimal::fromRaw(wrap32(std::int64_t(a.value) * FixedDecimal::one / b.value));
    }
    // Only raw values 0..4293 come here; from 2148 on the product wraps negative.
    const std::int32_t scaled =
        wrap32(static_cast<std::uint32_t>(a.value) * static_cast<std::uint32_t>(FixedDecimal::one));
    return FixedDecimal::fromRaw(scaled / b.value);
}

} // namespace zonara

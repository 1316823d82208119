#include "globe/FixedDecimal.h"

#include <climits>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zonara {
namespace {

FixedDecimal raw(std::int32_t r) {
    return FixedDecimal::fromRaw(r);
}

TEST(FixedDecimal, Conversions) {
    struct IntRow {
        int n;
        std::int32_t raw;
    };
    const IntRow fromInt[] = {
        {0, 0},
        {1, 1000000},
        {-3, -3000000},
        {2147, 2147000000},
        // 2148e6 is past INT32_MAX and wraps by 2^32.
        {2148, 2148000000 - 4294967296LL},
        {-2148, -2148000000 + 4294967296LL},
    };
    for (const IntRow& r : fromInt) {
        EXPECT_EQ(FixedDecimal(r.n).raw(), r.raw) << r.n;
    }

    struct DoubleRow {
        double d;
        std::int32_t raw;
    };
    const DoubleRow fromDouble[] = {
        {0.5, 500000},
        {0.5625, 562500},              // 360 / 640: a column of the large map
        {1.125, 1125000},              // 360 / 320
        {1.7777777777777781, 1777778}, // 320 rows / 180 degrees: rounded up by the half
        {1.0000002, 1000000},
        {1.0000006, 1000001}, // half a millionth added before the floor
        {-0.25, -250000},
        {-0.0000001, 0},
        {-0.000001, -1}, // floor, not truncation: -0.5 millionths goes down
        {3000.0, static_cast<std::int32_t>(3000000000LL - 4294967296LL)},
        {std::numeric_limits<double>::quiet_NaN(), INT32_MIN},
        {1e300, INT32_MIN},
    };
    for (const DoubleRow& r : fromDouble) {
        EXPECT_EQ(FixedDecimal(r.d).raw(), r.raw) << r.d;
    }

    struct ToIntRow {
        std::int32_t raw;
        int n;
    };
    const ToIntRow toInt[] = {
        {1999999, 1}, {-1999999, -1}, {999999, 0}, {-999999, 0}, {INT32_MIN, -2147},
    };
    for (const ToIntRow& r : toInt) {
        EXPECT_EQ(raw(r.raw).toInt(), r.n) << r.raw;
    }
}

TEST(FixedDecimal, Operations) {
    enum Op { Add, Sub, Neg, Mul, Div, Less };
    struct Row {
        Op op;
        std::int32_t a, b;
        std::int32_t expected; // for Less: 1 or 0
        const char* why;
    };
    const Row rows[] = {
        {Add, 1500000, 2250000, 3750000, "1.5 + 2.25"},
        {Add, INT32_MAX, 1, INT32_MIN, "sums wrap"},
        {Sub, 1000000, 3000000, -2000000, "1 - 3"},
        {Sub, INT32_MIN, 1, INT32_MAX, "differences wrap"},
        {Neg, 5, 0, -5, "0 - raw"},
        {Neg, INT32_MIN, 0, INT32_MIN, "the lowest value is its own negation"},
        {Mul, 1500000, 2500000, 3750000, "1.5 * 2.5"},
        {Mul, -1500000, 333333, -499999, "-0.4999995 truncates toward zero"},
        {Mul, 3, 3, 0, "below a millionth"},
        {Mul, 2000000000, 2000000000, 1385447424, "4e12 millionths keep their low 32 bits"},
        {Div, 63000000, 255000000, 247058, "the band's second weight, 63 / 255"},
        {Div, 1000000, 3000000, 333333, "1 / 3"},
        {Div, -1000000, 3000000, -333333, "negative dividends take the 64-bit path"},
        {Div, 5000000, 0, -1, "division by zero"},
        {Div, 0, 0, -1, "zero by zero"},
        {Div, 2000, 1000000, 2000, "32-bit path, no wrap yet"},
        {Div, 2147, 1000000, 2147, "last raw value that fits"},
        {Div, 2148, 1000000, -2146, "2148e6 wraps to -2146967296"},
        {Div, 4293, 1, -1967296, "4293e6 wraps to -1967296"},
        {Div, 4293, 1000000, -1, "... and truncates toward zero"},
        {Div, 4294, 1000000, 4294, "from 4294 on the 64-bit path"},
        {Div, INT32_MIN, -1000000, INT32_MIN, "2^31 wraps to itself"},
        {Less, -1, 0, 1, ""},
        {Less, 0, 0, 0, ""},
        {Less, 1, 0, 0, ""},
    };
    for (const Row& r : rows) {
        std::int32_t got = 0;
        switch (r.op) {
        case Add:
            got = (raw(r.a) + raw(r.b)).raw();
            break;
        case Sub:
            got = (raw(r.a) - raw(r.b)).raw();
            break;
        case Neg:
            got = (-raw(r.a)).raw();
            break;
        case Mul:
            got = (raw(r.a) * raw(r.b)).raw();
            break;
        case Div:
            got = (raw(r.a) / raw(r.b)).raw();
            break;
        case Less:
            got = raw(r.a) < raw(r.b) ? 1 : 0;
            break;
        }
        EXPECT_EQ(got, r.expected) << r.why << " (" << r.a << ", " << r.b << ")";
    }
}

} // namespace
} // namespace zonara

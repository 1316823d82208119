#pragma once
// The machine's tzdata for one zone, through the C library: offsets and changes.

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace zonara::test {

// Sets TZ for its lifetime, so only one may live at a time.
class TzClock {
  public:
    explicit TzClock(const std::string& zone) {
        setenv("TZ", (":" + zone).c_str(), 1);
        tzset();
    }
    ~TzClock() {
        unsetenv("TZ");
        tzset();
    }
    TzClock(const TzClock&) = delete;
    TzClock& operator=(const TzClock&) = delete;

    // The zone's offset from UTC, in seconds, at an instant.
    long offset(std::time_t t) const {
        std::tm local{};
        localtime_r(&t, &local);
        return local.tm_gmtoff;
    }

    // The first instant at or after `from` (and before `until`) whose offset
    // differs from the one just before it by `change` seconds.
    std::optional<std::time_t> nextChange(std::time_t from, std::time_t until, long change) const {
        constexpr std::time_t step = 6 * 3600;
        for (std::time_t t = from - 1; t < until; t += step) {
            if (offset(t + step) - offset(t) != change) {
                continue;
            }
            std::time_t lo = t;
            std::time_t hi = t + step;
            while (hi - lo > 1) {
                const std::time_t mid = lo + (hi - lo) / 2;
                (offset(mid) == offset(lo) ? lo : hi) = mid;
            }
            return hi;
        }
        return std::nullopt;
    }
};

} // namespace zonara::test

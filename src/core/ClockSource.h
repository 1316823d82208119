#pragma once
// Where "now" comes from: the system clock, or one instant fixed for the run.

#include <cstdint>
#include <functional>
#include <optional>

#include "core/SystemTime.h"

namespace zonara {

class ClockSource {
  public:
    static ClockSource system() { return ClockSource(std::nullopt); }
    static ClockSource fixedAt(const SystemTime& utc) { return ClockSource(utc); }
    // A clock that asks these functions: for tests whose time moves on as
    // they say.
    static ClockSource driven(std::function<SystemTime()> utc,
                              std::function<std::uint64_t()> ticks) {
        ClockSource source(std::nullopt);
        source.utcFunction = std::move(utc);
        source.tickFunction = std::move(ticks);
        return source;
    }

    SystemTime utcNow() const;
    // Milliseconds of a monotonic clock, for intervals only.
    std::uint64_t tickCount() const;
    bool isFixed() const { return fixed.has_value(); }

  private:
    explicit ClockSource(std::optional<SystemTime> at) : fixed(at) {}
    std::optional<SystemTime> fixed;
    std::function<SystemTime()> utcFunction;
    std::function<std::uint64_t()> tickFunction;
};

} // namespace zonara

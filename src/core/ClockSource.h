#pragma once
// Where "now" comes from: the system clock, or one instant fixed for the run.

#include <cstdint>
#include <optional>

#include "core/SystemTime.h"

namespace zonara {

class ClockSource {
  public:
    static ClockSource system() { return ClockSource(std::nullopt); }
    static ClockSource fixedAt(const SystemTime& utc) { return ClockSource(utc); }

    SystemTime utcNow() const;
    // Milliseconds of a monotonic clock, for intervals only.
    std::uint64_t tickCount() const;
    bool isFixed() const { return fixed.has_value(); }

  private:
    explicit ClockSource(std::optional<SystemTime> at) : fixed(at) {}
    std::optional<SystemTime> fixed;
};

} // namespace zonara

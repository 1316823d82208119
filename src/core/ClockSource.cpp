#include "core/ClockSource.h"

#include <chrono>

namespace zonara {

SystemTime ClockSource::utcNow() const {
    if (fixed) {
        return *fixed;
    }
    if (utcFunction) {
        return utcFunction();
    }
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto seconds = floor<std::chrono::seconds>(now);
    SystemTime t = systemTimeFromUnix(seconds.time_since_epoch().count());
    t.milliseconds = std::int32_t(duration_cast<milliseconds>(now - seconds).count());
    return t;
}

std::uint64_t ClockSource::tickCount() const {
    if (tickFunction) {
        return tickFunction();
    }
    using namespace std::chrono;
    return std::uint64_t(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

} // namespace zonara

#pragma once
// The fixed time-zone table: key, offset from UTC and the zone's name.

#include <array>
#include <cstdint>
#include <string_view>

namespace zonara {

struct ZoneRow {
    std::int32_t key;
    std::int32_t offsetMinutes;
    std::string_view offsetText;
    std::string_view name;
};

// 74 rows in ascending key order; the keys are the Windows time-zone indexes.
// The row with key 15 has no name.
extern const std::array<ZoneRow, 74> zoneTable;

// The row of a key: an unknown key takes its lower neighbour, a key below the
// first or above the last takes row 0.
const ZoneRow& zoneRow(std::int32_t key);

} // namespace zonara

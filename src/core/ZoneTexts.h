#pragma once
// The texts every view shows for a zone and its daylight-saving state.

#include <cstdint>
#include <string>

#include "core/ZoneTable.h"

namespace zonara {

// -1 "n\a", 0 "00", 1 "+01".
std::string dstStateText(std::int32_t dstState);
// The zone's name, with " Standard Time" added to all but Greenwich Mean Time.
std::string zoneDescription(const ZoneRow& row);

} // namespace zonara

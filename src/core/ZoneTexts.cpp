#include "core/ZoneTexts.h"

namespace zonara {

std::string dstStateText(std::int32_t dstState) {
    switch (dstState) {
    case 1:
        return "+01";
    case 0:
        return "00";
    default:
        return "n\\a";
    }
}

std::string zoneDescription(const ZoneRow& row) {
    if (row.name == "Greenwich Mean Time") {
        return std::string(row.name);
    }
    return std::string(row.name) + " Standard Time";
}

} // namespace zonara

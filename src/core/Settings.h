#pragma once
// The user's choices that outlive a run, kept in Data/settings.dat.

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "core/ClockSlot.h"

namespace zonara {

struct Settings {
    std::array<ClockSlot, 4> slots;
    std::u16string skinFile = u"default.xml";
    std::int32_t selectedSlot = 0; // [0, 3]
    std::uint8_t use24Hour = 0;
    std::uint8_t currentView = 0; // 0 Full Clock, 1 Globe, 2 Multi Clock
    std::uint8_t useCelsius = 1;
    std::uint8_t useMillibar = 1;
    std::u16string weatherQuery;
    std::u16string weatherCity;
    std::u16string weatherCountry;

    // Reads the file over the current values; false only when it does not open.
    bool Load(const std::filesystem::path& file);
    // Writes the whole file anew through a temporary file, so a failed save
    // leaves the old file whole; false when it could not be written.
    bool Save(const std::filesystem::path& file) const;

    friend bool operator==(const Settings&, const Settings&) = default;
};

inline constexpr std::string_view settingsFileName = "settings.dat";

} // namespace zonara

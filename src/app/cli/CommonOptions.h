#pragma once
// The options and words several commands share, read and refused the same way
// everywhere.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli/Args.h"
#include "app/cli/CommandError.h"
#include "core/ClockSource.h"
#include "core/Settings.h"
#include "core/SystemTime.h"

namespace zonara {

// --country NAME: the text as given; chooseCity and chooseCountry look it up.
std::optional<std::string> takeCountry(Args& args);
// --date YYYY-MM-DD; without it, today's UTC date of the clock.
Expected<SystemTime> takeDate(Args& args, const ClockSource& clock);
// --slot N, a clock slot from 0 to 3; without it, the settings' selected slot.
Expected<std::size_t> takeSlot(Args& args, const Settings& settings);
// --out FILE, which the command cannot do without.
Expected<std::filesystem::path> takeOut(Args& args);

// A clock slot number as a word: 0 to 3.
Expected<std::size_t> slotNumber(const std::string& word);
// The settings' selected slot, or 0 when the file holds one out of range.
std::size_t selectedSlot(const Settings& settings);

// For a command without positional words: the problem its options had, or
// the first word left over (followed by the hint, if any).
Outcome expectNoWords(Args& args, std::string_view hint = {});

// A name given as several words ("zonara time new york") is one name.
std::string joinedWords(const std::vector<std::string>& words);

} // namespace zonara

#pragma once
// The main frame's command table, keys and slot stepping, free of any widget.

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace zonara {

// What the frame does for a command id.
enum class FrameAction {
    SelectCity,
    ShowView,
    CityDetails,
    WeatherUpdate,
    WeatherShowLast,
    CurrencyConversion,
    Metric,
    StopWatch,
    FullClockSkin,
    UpdateData,
    Toggle24Hour,
    Help,
    About,
    Exit,
    Nothing, // accepted, nothing done
};

struct FrameCommand {
    int id;
    std::string_view text; // the menu's text; empty for commands with no item
    FrameAction action;
    int view = -1; // for ShowView
};

// Every command id the frame accepts, in menu order.
std::span<const FrameCommand> frameCommands();
// Nothing for an id the frame does not know.
const FrameCommand* findFrameCommand(int id);

// Views by number: 0 Full Clock, 1 Globe, 2 Multi Clock.
inline constexpr int fullClockView = 0;
inline constexpr int globeView = 1;
inline constexpr int multiClockView = 2;

// "1" the Globe, "2" the Full Clock, "3" the Multi Clock: the View menu's
// order, not the view numbers. Nothing for other keys.
std::optional<int> viewForKey(char key);

// Up steps to the slot before (0 to 3), down to the slot after (3 to 0).
std::int32_t stepSlot(std::int32_t slot, bool up);

} // namespace zonara

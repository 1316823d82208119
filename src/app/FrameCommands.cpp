#include "app/FrameCommands.h"

#include <array>

namespace zonara {

namespace {

// clang-format off
constexpr std::array commandTable = {
    FrameCommand{32772, "Select City",        FrameAction::SelectCity},
    FrameCommand{32774, "Globe",              FrameAction::ShowView, 1},
    FrameCommand{32775, "Full Clock",         FrameAction::ShowView, 0},
    FrameCommand{32776, "Multi Clock",        FrameAction::ShowView, 2},
    FrameCommand{32777, "City Details",       FrameAction::CityDetails},
    FrameCommand{32819, "Update",             FrameAction::WeatherUpdate},
    FrameCommand{32820, "Show Last",          FrameAction::WeatherShowLast},
    FrameCommand{32779, "Curreny Conversion", FrameAction::CurrencyConversion}, // the menu's own spelling
    FrameCommand{32783, "Metric",             FrameAction::Metric},
    FrameCommand{32780, "Stop Watch",         FrameAction::StopWatch},
    FrameCommand{32790, "Full Clock Skin",    FrameAction::FullClockSkin},
    FrameCommand{32791, "Update Data",        FrameAction::UpdateData},
    FrameCommand{32792, "Use 24 hour clock",  FrameAction::Toggle24Hour},
    FrameCommand{32793, "Help",               FrameAction::Help},
    FrameCommand{32794, "About",              FrameAction::About},
    FrameCommand{32795, "Exit",               FrameAction::Exit},
    FrameCommand{2,     "",                   FrameAction::Exit},
    FrameCommand{32782, "",                   FrameAction::Nothing},
    FrameCommand{32784, "",                   FrameAction::Nothing},
    FrameCommand{32785, "",                   FrameAction::Nothing},
    FrameCommand{32786, "",                   FrameAction::Nothing},
    FrameCommand{32787, "",                   FrameAction::Nothing},
    FrameCommand{32788, "",                   FrameAction::Nothing},
};
// clang-format on

} // namespace

std::span<const FrameCommand> frameCommands() {
    return commandTable;
}

const FrameCommand* findFrameCommand(int id) {
    for (const FrameCommand& command : commandTable) {
        if (command.id == id) {
            return &command;
        }
    }
    return nullptr;
}

std::optional<int> viewForKey(char key) {
    switch (key) {
    case '1':
        return globeView;
    case '2':
        return fullClockView;
    case '3':
        return multiClockView;
    default:
        return std::nullopt;
    }
}

std::int32_t stepSlot(std::int32_t slot, bool up) {
    if (up) {
        return slot <= 0 ? 3 : slot - 1;
    }
    return slot >= 3 ? 0 : slot + 1;
}

} // namespace zonara

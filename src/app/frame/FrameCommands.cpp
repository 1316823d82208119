#include "app/frame/FrameCommands.h"

#include <array>

#include "app/frame/FrameHandlers.h"
#include "controls/CommandIds.h"

namespace zonara {

namespace {

using enum MenuPopup;
using enum MenuItem;

// clang-format off
constexpr std::array commandTable = {
    FrameCommand{cmd::SelectCity,         "Select City",        None,    NoItem,  selectCityCommand},
    FrameCommand{cmd::Globe,              "Globe",              View,    Shown,   showViewCommand},
    FrameCommand{cmd::FullClock,          "Full Clock",         View,    Shown,   showViewCommand},
    FrameCommand{cmd::MultiClock,         "Multi Clock",        View,    Shown,   showViewCommand},
    FrameCommand{cmd::CityDetails,        "City Details",       None,    Shown,   cityDetailsCommand},
    FrameCommand{cmd::WeatherUpdate,      "Update",             Weather, Shown,   weatherUpdateCommand},
    FrameCommand{cmd::WeatherShowLast,    "Show Last",          Weather, Shown,   weatherShowLastCommand},
    FrameCommand{cmd::CurrencyConversion, "Curreny Conversion", None,    Shown,   currencyCommand}, // the menu's own spelling
    FrameCommand{cmd::Metric,             "Metric",             None,    Shown,   metricCommand},
    FrameCommand{cmd::StopWatch,          "Stop Watch",         None,    Shown,   stopWatchCommand},
    FrameCommand{cmd::FullClockSkin,      "Full Clock Skin",    Setup,   Removed, skinCommand},
    FrameCommand{cmd::UpdateData,         "Update Data",        Setup,   Shown,   updateDataCommand},
    FrameCommand{cmd::UseTwentyFourHour,  "Use 24 hour clock",  Setup,   Shown,   twentyFourHourCommand, false, true},
    FrameCommand{cmd::Help,               "Help",               None,    Shown,   helpCommand, true},
    FrameCommand{cmd::About,              "About",              None,    Shown,   aboutCommand},
    FrameCommand{cmd::Exit,               "Exit",               None,    Shown,   exitCommand},
    FrameCommand{cmd::PlatformCancel,     "",                   None,    NoItem,  exitCommand},
    FrameCommand{cmd::acceptedAndIgnored[0], "",                None,    NoItem,  nullptr},
    FrameCommand{cmd::acceptedAndIgnored[1], "",                None,    NoItem,  nullptr},
    FrameCommand{cmd::acceptedAndIgnored[2], "",                None,    NoItem,  nullptr},
    FrameCommand{cmd::acceptedAndIgnored[3], "",                None,    NoItem,  nullptr},
    FrameCommand{cmd::acceptedAndIgnored[4], "",                None,    NoItem,  nullptr},
    FrameCommand{cmd::acceptedAndIgnored[5], "",                None,    NoItem,  nullptr},
};
// clang-format on

} // namespace

std::span<const FrameCommand> frameCommands() {
    return commandTable;
}

const FrameCommand* findFrameCommand(int id) {
    for (const FrameCommand& command : commandTable)
        if (command.id == id)
            return &command;
    return nullptr;
}

std::string_view popupTitle(MenuPopup popup) {
    switch (popup) {
    case View:
        return "View";
    case Weather:
        return "Weather";
    case Setup:
        return "Setup";
    case None:
        break;
    }
    return {};
}

std::int32_t stepSlot(std::int32_t slot, bool up) {
    if (up)
        return slot <= 0 ? 3 : slot - 1;
    return slot >= 3 ? 0 : slot + 1;
}

} // namespace zonara

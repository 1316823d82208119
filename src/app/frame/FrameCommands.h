#pragma once
// The main frame's command table: every id it accepts, its menu item and its handler.

#include <span>
#include <string_view>

#include "app/frame/FrameContext.h"

namespace zonara {

// The popups of the "Menu" key, in the order they first appear.
enum class MenuPopup { None, View, Weather, Setup };

enum class MenuItem {
    Shown,
    Removed, // made, then taken out of the menu at every start; the id still works
    NoItem,  // reaches the frame without a menu item
};

struct FrameCommand {
    int id;
    std::string_view text; // the menu's text
    MenuPopup popup;
    MenuItem item;
    FrameHandler handler; // nothing: accepted, nothing done
    bool separatorBefore = false;
    bool checkable = false;
};

// Every command id the frame accepts, in menu order.
std::span<const FrameCommand> frameCommands();
// Nothing for an id the frame does not know.
const FrameCommand* findFrameCommand(int id);
std::string_view popupTitle(MenuPopup popup);

// Up steps to the slot before (0 to 3), down to the slot after (3 to 0).
std::int32_t stepSlot(std::int32_t slot, bool up);

} // namespace zonara

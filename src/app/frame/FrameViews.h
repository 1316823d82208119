#pragma once
// The main frame's views: their numbers, keys, menu commands and how each is made.

#include <span>
#include <string_view>

#include "controls/ClockView.h"

namespace zonara {

inline constexpr int fullClockView = 0;
inline constexpr int globeView = 1;
inline constexpr int multiClockView = 2;

struct FrameView {
    int view; // the number the settings keep
    char key; // "1" the Globe, "2" the Full Clock, "3" the Multi Clock: the View menu's order
    int menuCommand; // the View menu's item
    ClockView* (*create)(const ViewSetup& setup, QWidget* parent);
};

// In view-number order.
std::span<const FrameView> frameViews();
const FrameView* viewByKey(char key);
const FrameView* viewByCommand(int commandId);

} // namespace zonara

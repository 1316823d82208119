#pragma once
// Starting Zonara's window: display check, single instance, the main frame.

#include "app/CommandLine.h"

namespace zonara {

// True when a window can be shown: a Qt platform is named, or an X or
// Wayland display is set.
bool hasDisplay();

// Opens the main window and runs until it closes; returns the exit code.
int runWindow(const GlobalOptions& options, int argc, char** argv);

} // namespace zonara

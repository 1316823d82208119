#pragma once
// What a frame command works with, and what it tells the frame to do next.

#include <filesystem>
#include <functional>

#include "cities/CityCatalog.h"
#include "core/ClockSource.h"
#include "core/DeviceProfile.h"
#include "core/DstRule.h"
#include "core/Paths.h"
#include "core/Settings.h"
#include "net/Config.h"

class QDialog;
class QString;
class QWidget;

namespace zonara {

// How the frame runs a modal dialog, tells the user something and opens a
// page; tests replace them.
struct FrameServices {
    std::function<int(QDialog&)> runDialog;
    std::function<void(const QString& title, const QString& text)> tellUser;
    std::function<bool(const std::filesystem::path&)> openPage;
};

struct FrameContext {
    const Paths& paths;
    const ClockSource& clock;
    const DeviceProfile& profile;
    Settings& settings;
    const DstRuleList& rules;
    CityCatalog& catalog;
    FrameServices& services;
    QWidget* window;      // the parent of every dialog
    int command;          // the id being run
    const Config& config; // zonara.ini, read once at start

    // The selected slot, kept inside 0..3 whatever the settings file held.
    std::size_t slot() const {
        return std::size_t(
            settings.selectedSlot >= 0 && settings.selectedSlot <= 3 ? settings.selectedSlot : 0);
    }
};

enum class FrameOutcome {
    Nothing,
    Refresh,         // the views show the settings again; nothing is saved
    SettingsChanged, // saved, then the views show them again
    SkinChanged,     // saved; the full clock takes the new skin
    DataChanged,     // new world files: rebuild, look the slots up again
    ShowView,
    Exit,
};

struct FrameResult {
    FrameOutcome outcome = FrameOutcome::Nothing;
    int view = -1; // for ShowView
};

using FrameHandler = FrameResult (*)(FrameContext&);

} // namespace zonara

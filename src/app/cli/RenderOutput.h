#pragma once
// What the drawing commands share: the check that widgets can draw, the PNG they write and
// how they name the screen.

#include <filesystem>
#include <string>

#include "app/cli/CommandError.h"
#include "core/DeviceProfile.h"

class QImage;

namespace zonara {

class OffscreenApp;

// An error when the application running is not one widgets can draw in.
Outcome drawingProblem(const OffscreenApp& application);
Outcome savePng(const QImage& image, const std::filesystem::path& out);
// "480x640".
std::string screenText(const DeviceProfile& profile);

// The first of the values that holds an error, else success.
template <class... T> Outcome firstError(const Expected<T>&... values) {
    Outcome outcome;
    ((outcome = outcome.ok() && !values ? Outcome(values.error()) : outcome), ...);
    return outcome;
}

} // namespace zonara

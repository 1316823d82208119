#pragma once
// A widget application for drawing on the command line, on the offscreen platform.

#include <memory>

class QApplication;

namespace zonara {

// Makes a QApplication when none exists, on the offscreen platform unless the
// environment names another, so widgets can draw without a display; it goes
// with this object. An application that already runs is used as it is.
class OffscreenApp {
  public:
    OffscreenApp();
    ~OffscreenApp();
    OffscreenApp(const OffscreenApp&) = delete;
    OffscreenApp& operator=(const OffscreenApp&) = delete;

    // False when the running application is not a widget application.
    bool usable() const;

  private:
    // QApplication keeps references to both for its whole life.
    int argc = 1;
    char name[7] = "zonara";
    char* argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> app;
};

} // namespace zonara

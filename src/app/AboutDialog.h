#pragma once
// The About dialog: the program's name, version, what it is and its credits.

#include "controls/CDialogFrame.h"

namespace zonara {

class AboutDialog : public CDialogFrame {
    Q_OBJECT
  public:
    explicit AboutDialog(const DeviceProfile& profile, QWidget* parent = nullptr);
};

} // namespace zonara

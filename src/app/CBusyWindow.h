#pragma once
// A small topmost window with two centred lines, shown while the data are prepared.

#include <QWidget>

namespace zonara {

class CBusyWindow : public QWidget {
    Q_OBJECT
  public:
    // Covers the parent's client area; shows and paints itself at once.
    explicit CBusyWindow(QWidget* parent);
};

} // namespace zonara

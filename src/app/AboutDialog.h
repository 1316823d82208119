#pragma once
// The About dialog: the program's name, version and what it is.

#include <QDialog>

namespace zonara {

class AboutDialog : public QDialog {
    Q_OBJECT
  public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

} // namespace zonara

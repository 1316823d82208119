#pragma once
// The bar at the bottom of the main window and of each full-screen dialog: a
// left button and a right "Menu" button with a popup.

#include <QMenu>
#include <QPushButton>
#include <QWidget>

namespace zonara {

class SoftKeyBar : public QWidget {
    Q_OBJECT
  public:
    explicit SoftKeyBar(const QString& leftText, QWidget* parent = nullptr);

    QPushButton* leftButton() const { return left; }
    QPushButton* menuButton() const { return right; }
    // The popup that the "Menu" button opens.
    QMenu* menu() const { return popup; }

  private:
    QPushButton* left;
    QPushButton* right;
    QMenu* popup;
};

} // namespace zonara

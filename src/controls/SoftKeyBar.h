#pragma once
// The bar at the bottom of the main window and of each full-screen dialog: a
// left button and a right "Menu" button whose popup opens inside the window.

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
    // Key texts at the profile's dots per inch.
    void setDpi(int dpi);

    // Opens the popup above the Menu key, inside the key's window.
    void openMenu();

    // Where a popup of this size opens: its right edge on the key's right
    // edge, its bottom on the key's top, moved back inside the window where
    // it would cross an edge. All rectangles in one coordinate system.
    static QPoint popupPosition(const QRect& window, const QRect& key, const QSize& popup);
    // Where a submenu opens: right of its parent menu when it fits in the
    // window, else left of it; then moved back inside the window.
    static QPoint submenuPosition(const QRect& window, const QRect& parentMenu,
                                  const QRect& wanted);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void watchSubmenus(QMenu* menu);

    QPushButton* left;
    QPushButton* right;
    QMenu* popup;
};

} // namespace zonara

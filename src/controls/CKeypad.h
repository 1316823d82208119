#pragma once
// The converters' calculator pad: a display line over 25 drawn keys, clicked or typed.

#include <QString>
#include <QWidget>

#include "controls/KeypadKeys.h"
#include "core/DeviceProfile.h"

class QKeyEvent;
class QPainter;

namespace zonara {

class CKeypad : public QWidget {
    Q_OBJECT
  public:
    explicit CKeypad(QWidget* parent = nullptr);

    // Lays the pad out for a screen and takes the size that layout needs.
    void setProfile(const DeviceProfile& profile);
    const KeypadLayout& layout() const { return geometry; }

    // Shows the calculator's display text, followed by one blank.
    void setDisplayText(const QString& text);
    // The text as shown, blank included.
    const QString& displayText() const { return shown; }

    // The face of a key, in the user's language for the worded keys.
    static QString face(int index);

    // Hardware keys, for the owner to forward what its other controls do not
    // take: Shift is noted on the press, and the key acts on its release.
    // True when the key belongs to the pad.
    bool hardwareKeyPress(const QKeyEvent& event);
    bool hardwareKeyRelease(const QKeyEvent& event);

  Q_SIGNALS:
    // A key was pressed: its index 0..24 and its command id 7000 + index.
    void keyPressed(int index);
    void command(int id);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    void press(int index);
    void paintKey(QPainter& painter, int index) const;
    void setDown(int index);

    KeypadLayout geometry;
    HardwareKeyState keys;
    QString shown = QStringLiteral("0 ");
    int downKey = -1;
};

} // namespace zonara

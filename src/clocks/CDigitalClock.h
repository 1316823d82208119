#pragma once
// The seven-segment clock window: paints the layout that DigitalClock computes.

#include <QFont>
#include <QImage>
#include <QWidget>

#include "clocks/DigitalClock.h"

class QPainter;

namespace zonara {

class CDigitalClock : public QWidget {
    Q_OBJECT
  public:
    explicit CDigitalClock(QWidget* parent = nullptr);

    DigitalClock& engine() { return clock; }
    const DigitalClock& engine() const { return clock; }

    void setColours(const DigitalClockColours& colours);
    void setTime(int hour, int minute, int second);
    void setFlags(std::uint32_t flags);
    void setUse24Hour(bool use24Hour);

    // Paints the window's face into `target` (of the window's size) as a paint
    // event would; the background is filled unless the flags say otherwise.
    void renderTo(QImage& target) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    // Draws what lies in `area` (all of it when empty).
    void paintFace(QPainter& painter, const QRect& area = QRect()) const;

    DigitalClock clock;
    QFont amPmFont;
};

// A small sans face whose line is at most 10 pixels high, standing in for the
// handheld's "Nina".
QFont amPmFontFace();

} // namespace zonara

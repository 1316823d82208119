#pragma once
// The analogue clock window: the owner's background under hands drawn off-screen.

#include <QImage>
#include <QPoint>
#include <QRegion>
#include <QWidget>

#include "clocks/AnalogueClock.h"
#include "core/ClockSource.h"

namespace zonara {

class CAnalogueClock : public QWidget {
    Q_OBJECT
  public:
    // Starts at the clock source's UTC time on the 12-hour dial until the
    // owner sets one.
    explicit CAnalogueClock(const ClockSource& clock, QWidget* parent = nullptr);

    AnalogueClock& engine() { return clock; }
    const AnalogueClock& engine() const { return clock; }

    // The owner's picture (shared, not copied) and this window's left and top in it.
    void setBackground(const QImage& picture, QPoint offset);
    // Repaints only the hands' old and new areas, and nothing when the time
    // is the one shown.
    void setTime(int hour, int minute, int second);
    // Where the hands lie now, with the pixels round them the blend reaches.
    QRegion handsArea();
    void hideSeconds(bool hide);

    // Draws background and hands into the off-screen buffer and returns it;
    // with an area, only that part is drawn again and the rest kept.
    const QImage& render(const QRegion& area = QRegion());

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    AnalogueClock clock;
    QImage background;
    QPoint backgroundOffset;
    QImage buffer;
    bool bufferCurrent = false; // holds the whole face as last drawn
};

} // namespace zonara

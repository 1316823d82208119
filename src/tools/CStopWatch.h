#pragma once
// The stopwatch dialog: a three-field seven-segment display, Start/Stop, Reset and Cancel.

#include <QTimer>

#include "controls/CDialogFrame.h"
#include "core/ClockSource.h"
#include "tools/Stopwatch.h"

namespace zonara {

class CDigitalClock;

class CStopWatch : public CDialogFrame {
    Q_OBJECT
  public:
    // The watch reads the clock's tick count; it opens stopped at zero.
    CStopWatch(const ClockSource& clock, const DeviceProfile& profile, QWidget* parent = nullptr);

    const Stopwatch& watch() const { return stopwatch; }
    CDigitalClock* display() const { return digits; }
    // Runs every 100 ms while the watch runs.
    const QTimer& tickTimer() const { return timer; }

    // What the timer does: takes the tick count and shows the elapsed time.
    void tick();

  protected:
    void onCommand(int commandId) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void startStop();
    void stop();
    void showTime();
    void placeDisplay();
    std::uint32_t now() const;

    ClockSource clock;
    Stopwatch stopwatch;
    CDigitalClock* digits;
    QTimer timer;
    bool placed = false;
};

} // namespace zonara

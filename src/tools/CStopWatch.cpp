#include "tools/CStopWatch.h"

#include <QEvent>
#include <QPushButton>

#include "clocks/CDigitalClock.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"

namespace zonara {

CStopWatch::CStopWatch(const ClockSource& clock, const DeviceProfile& profile, QWidget* parent)
    : CDialogFrame(profile, tr("Stop Watch"), parent), clock(clock),
      digits(new CDigitalClock(content())) {
    digits->setObjectName(QStringLiteral("stopwatchDisplay"));
    digits->setFlags(stopwatchDisplayFlags);
    digits->setColours(stopwatchColours);
    digits->setTime(0, 0, 0);

    setLeftKey(tr("Start"), cmd::StartStop);
    addMenuCommand(tr("Reset"), cmd::Reset);
    addMenuCommand(tr("Cancel"), cmd::Cancel);

    timer.setInterval(Stopwatch::tickIntervalMs);
    connect(&timer, &QTimer::timeout, this, &CStopWatch::tick);
    // The display is placed once the content area has its size, and again
    // on every change of it.
    content()->installEventFilter(this);
}

std::uint32_t CStopWatch::now() const {
    // The handheld's tick count is 32 bits wide and wraps; the watch's
    // arithmetic expects exactly that.
    return std::uint32_t(clock.tickCount());
}

void CStopWatch::onCommand(int commandId) {
    switch (commandId) {
    case cmd::StartStop:
        startStop();
        return;
    case cmd::Reset:
        stopwatch.reset();
        showTime();
        return;
    case cmd::Cancel:
    case cmd::PlatformCancel:
        timer.stop();
        break;
    default:
        break;
    }
    CDialogFrame::onCommand(commandId);
}

void CStopWatch::startStop() {
    if (stopwatch.running()) {
        stop();
        return;
    }
    stopwatch.startStop(now());
    timer.start();
    setLeftKey(tr("Stop"), cmd::StartStop);
}

void CStopWatch::stop() {
    timer.stop();
    if (stopwatch.running())
        stopwatch.startStop(now());
    setLeftKey(tr("Start"), cmd::StartStop);
}

void CStopWatch::tick() {
    stopwatch.tick(now());
    showTime();
}

void CStopWatch::showTime() {
    const auto [first, second, third] = stopwatch.fields();
    digits->setTime(first, second, third);
}

bool CStopWatch::event(QEvent* event) {
    // Another window coming forward stops the watch; its time is kept.
    if (event->type() == QEvent::WindowDeactivate && stopwatch.running())
        stop();
    return CDialogFrame::event(event);
}

bool CStopWatch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == content() && event->type() == QEvent::Resize)
        placeDisplay();
    return CDialogFrame::eventFilter(watched, event);
}

void CStopWatch::placeDisplay() {
    const DeviceProfile& screen = profile();
    auto placement = stopwatchDisplayPlacement(screen, content()->width(), content()->height());
    if (!placement) {
        if (placed)
            return;
        // The rule keeps the display where it is; the first time that is
        // where it would go without the second display.
        DeviceProfile single = screen;
        single.secondDisplay = false;
        placement = stopwatchDisplayPlacement(single, content()->width(), content()->height());
    }
    digits->setGeometry(placement->x, placement->y, placement->width, placement->height);
    placed = true;
}

} // namespace zonara

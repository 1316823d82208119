#include "tools/CStopWatch.h"

#include <array>
#include <string>

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPushButton>
#include <gtest/gtest.h>

#include "clocks/CDigitalClock.h"
#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"

namespace zonara {
namespace {

// A stopwatch dialog on a tick count the test moves by hand.
struct Watch {
    std::uint64_t ticks = 0;
    CStopWatch dialog;

    explicit Watch(const DeviceProfile& profile = *deviceProfile(240, 320))
        : dialog(ClockSource::driven([] { return SystemTime{}; }, [this] { return ticks; }),
                 profile) {}

    std::array<int, 3> shown() const {
        const DigitalClock& digits = dialog.display()->engine();
        return {digits.hour(), digits.minute(), digits.second()};
    }
    std::string key() const { return dialog.softKeys()->leftButton()->text().toStdString(); }
};

enum class Act { StartStop, Tick, Reset, Deactivate };

struct Step {
    Act act;
    std::uint64_t ticks; // the tick count when it happens
    std::array<int, 3> shown;
    bool running;
};

void run(Watch& w, const Step& s) {
    w.ticks = s.ticks;
    switch (s.act) {
    case Act::StartStop:
        w.dialog.softKeys()->leftButton()->click();
        break;
    case Act::Tick:
        w.dialog.tick();
        break;
    case Act::Reset:
        w.dialog.menuCommand(cmd::Reset)->trigger();
        break;
    case Act::Deactivate: {
        QEvent leave(QEvent::WindowDeactivate);
        QApplication::sendEvent(&w.dialog, &leave);
        break;
    }
    }
    EXPECT_EQ(w.shown(), s.shown);
    EXPECT_EQ(w.dialog.watch().running(), s.running);
    EXPECT_EQ(w.dialog.tickTimer().isActive(), s.running);
    EXPECT_EQ(w.key(), s.running ? "Stop" : "Start");
}

TEST(CStopWatch, StartStopResetAndLeavingOnTheTickCount) {
    using enum Act;
    const Step steps[] = {
        {StartStop, 1000, {0, 0, 0}, true},
        {Tick, 62340, {1, 1, 34}, true},
        {StartStop, 62400, {1, 1, 34}, false},
        // A tick that was still on its way counts nothing.
        {Tick, 70000, {1, 1, 34}, false},
        // Starting again goes on from the stopped time.
        {StartStop, 80000, {1, 1, 34}, true},
        {Tick, 80500, {1, 1, 84}, true},
        // Reset while running: zero, and counting on from the last tick.
        {Reset, 81000, {0, 0, 0}, true},
        {Tick, 3681250, {1, 0, 0}, true},
        // Another window coming forward stops it and keeps the time.
        {Deactivate, 8000000, {1, 0, 0}, false},
        {Tick, 9000000, {1, 0, 0}, false},
    };
    Watch w;
    EXPECT_EQ(w.shown(), (std::array<int, 3>{0, 0, 0}));
    EXPECT_EQ(w.key(), "Start");
    EXPECT_EQ(w.dialog.tickTimer().interval(), 100);
    int row = 0;
    for (const Step& s : steps) {
        SCOPED_TRACE(row++);
        run(w, s);
    }
}

TEST(CStopWatch, ReadsTheTickCountAsThirtyTwoBitsAcrossItsWrap) {
    // Only the low 32 bits count, and their wrap costs one millisecond.
    for (const auto& [start, now] :
         {std::pair<std::uint64_t, std::uint64_t>{0xFFFFFED4u, 0x1000000C8u},
          {0x7FFFFFED4u, 0x8000000C8u}}) {
        Watch w;
        run(w, {Act::StartStop, start, {0, 0, 0}, true});
        run(w, {Act::Tick, now, {0, 0, 49}, true});
    }
}

TEST(CStopWatch, CancelAndEscapeStopTheTimerAndEndTheDialog) {
    for (const int id : {cmd::Cancel, cmd::PlatformCancel}) {
        Watch w;
        w.dialog.show();
        w.dialog.softKeys()->leftButton()->click();
        ASSERT_TRUE(w.dialog.tickTimer().isActive());
        if (id == cmd::Cancel) {
            w.dialog.menuCommand(cmd::Cancel)->trigger();
        } else {
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QApplication::sendEvent(&w.dialog, &escape);
        }
        EXPECT_FALSE(w.dialog.tickTimer().isActive()) << id;
        EXPECT_FALSE(w.dialog.isVisible()) << id;
        EXPECT_EQ(w.dialog.result(), QDialog::Rejected) << id;
    }
}

TEST(CStopWatch, DisplayIsCentredWholeAndInItsColoursOnEveryScreen) {
    struct Case {
        int width, height;
        bool secondDisplay;
        QSize size;
    };
    const Case cases[] = {
        {480, 640, false, {300, 150}}, {640, 480, false, {300, 150}},
        {220, 176, false, {220, 110}}, {176, 220, false, {154, 80}},
        {480, 640, true, {220, 110}},  {320, 240, true, {220, 110}}, // left where first put
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.width) + "x" + std::to_string(c.height) +
                     (c.secondDisplay ? " second" : ""));
        Watch w(*deviceProfile(c.width, c.height, c.secondDisplay));
        w.dialog.show();
        const QRect area = w.dialog.content()->rect();
        const QRect display = w.dialog.display()->geometry();
        EXPECT_EQ(display.size(), c.size);
        EXPECT_TRUE(area.contains(display));
        EXPECT_LE(std::abs(display.center().x() - area.center().x()), 1);
        EXPECT_LE(std::abs(display.center().y() - area.center().y()), 1);

        // Lit segments in orange on dark grey: "00 00 00" lights six of each
        // digit's seven segments.
        const QImage face =
            w.dialog.display()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        int lit = 0, ground = 0;
        for (int y = 0; y < face.height(); ++y)
            for (int x = 0; x < face.width(); ++x) {
                lit += face.pixel(x, y) == qRgb(253, 88, 27);
                ground += face.pixel(x, y) == qRgb(30, 30, 30);
            }
        EXPECT_GT(lit, face.width() * face.height() / 20);
        EXPECT_GT(ground, face.width() * face.height() / 3);
    }
}

} // namespace
} // namespace zonara

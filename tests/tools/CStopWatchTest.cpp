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
        {Tick, 1100, {0, 0, 10}, true},
        {Tick, 62340, {1, 1, 34}, true},
        {StartStop, 62400, {1, 1, 34}, false},
        // A tick that was still on its way counts nothing.
        {Tick, 70000, {1, 1, 34}, false},
        // Starting again goes on from the stopped time.
        {StartStop, 80000, {1, 1, 34}, true},
        {Tick, 80500, {1, 1, 84}, true},
        // Reset while running: zero, and counting on from the last tick.
        {Reset, 81000, {0, 0, 0}, true},
        {Tick, 81250, {0, 0, 75}, true},
        {Tick, 3681250, {1, 0, 0}, true},
        {Tick, 3681250 + 3599000, {1, 59, 59}, true},
        // Another window coming forward stops it and keeps the time.
        {Deactivate, 8000000, {1, 59, 59}, false},
        {Tick, 9000000, {1, 59, 59}, false},
        {Reset, 9000001, {0, 0, 0}, false},
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
    struct Case {
        std::uint64_t start, now;
        std::array<int, 3> shown;
    };
    const Case cases[] = {
        // A wrap costs one millisecond.
        {0xFFFFFED4u, 0x1000000C8u, {0, 0, 49}},
        {0xFFFFFFFFu, 0x100000000u, {0, 0, 0}},
        // Only the low 32 bits count, wherever the monotonic clock stands.
        {0x500000000u + 1000, 0x500000000u + 60000, {0, 59, 0}},
        {0x7FFFFFFF0u, 0x800000000u + 3599975, {59, 59, 99}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.start);
        Watch w;
        run(w, {Act::StartStop, c.start, {0, 0, 0}, true});
        run(w, {Act::Tick, c.now, c.shown, true});
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
        {480, 640, false, {300, 150}},
        {640, 480, false, {300, 150}},
        {240, 320, false, {220, 110}},
        {320, 240, false, {220, 110}},
        {220, 176, false, {220, 110}},
        {176, 220, false, {154, 80}},
        {480, 640, true, {220, 110}},
        {176, 220, true, {154, 80}},
        // Left where it was first put.
        {320, 240, true, {220, 110}},
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
        EXPECT_EQ(face.pixel(0, 0), qRgb(30, 30, 30));
    }
}

} // namespace
} // namespace zonara

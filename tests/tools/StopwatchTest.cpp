#include "tools/Stopwatch.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>

#include <gtest/gtest.h>

namespace zonara {
namespace {

TEST(Stopwatch, FieldsAroundTheHour) {
    struct Case {
        std::uint32_t elapsedMs;
        std::array<int, 3> fields;
        const char* text;
    };
    const Case cases[] = {
        {0, {0, 0, 0}, "00:00.00"},
        {9, {0, 0, 0}, "00:00.00"},
        {999, {0, 0, 99}, "00:00.99"},
        {1000, {0, 1, 0}, "00:01.00"},
        {59999, {0, 59, 99}, "00:59.99"},
        {60000, {1, 0, 0}, "01:00.00"},
        {754321, {12, 34, 32}, "12:34.32"},
        {3599990, {59, 59, 99}, "59:59.99"},
        {3599999, {59, 59, 99}, "59:59.99"},
        {3600000, {1, 0, 0}, "01:00:00"},
        {3600999, {1, 0, 0}, "01:00:00"},
        {3661500, {1, 1, 1}, "01:01:01"},
        {86399999, {23, 59, 59}, "23:59:59"},
        {360000000, {100, 0, 0}, "100:00:00"},
        {4294967295u, {1193, 2, 47}, "1193:02:47"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(stopwatchFields(c.elapsedMs), c.fields) << c.elapsedMs;
        Stopwatch watch;
        watch.startStop(0);
        watch.tick(c.elapsedMs);
        EXPECT_EQ(watch.fields(), c.fields) << c.elapsedMs;
        EXPECT_EQ(watch.text(), c.text) << c.elapsedMs;
    }
}

TEST(Stopwatch, TicksAcrossTheCountsWrap) {
    struct Case {
        std::uint32_t start;
        std::initializer_list<std::uint32_t> ticks;
        std::uint32_t elapsedMs;
    };
    const Case cases[] = {
        {1000, {1100, 1200}, 200},
        {1000, {1000}, 0},
        {1000, {1100, 1100, 1337}, 337},
        // The wrap takes one millisecond off each time the count passes it.
        {0xFFFFFFCEu, {50}, 99},
        {0xFFFFFFCEu, {0xFFFFFFFFu, 0}, 49},
        {0xFFFFFFCEu, {0xFFFFFFFFu, 0, 100}, 149},
        {0xFFFFFF00u, {0x80000000u}, 0x80000100u - 1},
    };
    for (const Case& c : cases) {
        Stopwatch watch;
        watch.startStop(c.start);
        for (std::uint32_t now : c.ticks)
            watch.tick(now);
        EXPECT_EQ(watch.elapsedMs(), c.elapsedMs) << c.start;
        EXPECT_EQ(watch.lastTickCount(), *(c.ticks.end() - 1));
    }
}

TEST(Stopwatch, StartStopResetAndLeaving) {
    Stopwatch watch;
    EXPECT_FALSE(watch.running());
    watch.startStop(1000);
    EXPECT_TRUE(watch.running());
    for (std::uint32_t now = 1100; now <= 2000; now += 100)
        watch.tick(now);
    EXPECT_EQ(watch.elapsedMs(), 1000u);
    // Stopping keeps the time of the last tick; what passed after it is lost.
    watch.startStop(2050);
    EXPECT_FALSE(watch.running());
    watch.tick(3000);
    EXPECT_EQ(watch.elapsedMs(), 1000u);
    // Starting again continues from there.
    watch.startStop(5000);
    watch.tick(5100);
    EXPECT_EQ(watch.elapsedMs(), 1100u);
    EXPECT_EQ(watch.fields(), (std::array<int, 3>{0, 1, 10}));

    // Reset while running: zero, and counting on from the last tick.
    watch.reset();
    EXPECT_TRUE(watch.running());
    EXPECT_EQ(watch.fields(), (std::array<int, 3>{0, 0, 0}));
    watch.tick(5350);
    EXPECT_EQ(watch.elapsedMs(), 250u);

    // Leaving the window stops the watch and keeps its time; Start resumes.
    watch.deactivate();
    EXPECT_FALSE(watch.running());
    watch.tick(9000);
    EXPECT_EQ(watch.elapsedMs(), 250u);
    watch.startStop(9000);
    watch.tick(9500);
    EXPECT_EQ(watch.elapsedMs(), 750u);

    // Reset while stopped.
    watch.startStop(9600);
    watch.reset();
    EXPECT_EQ(watch.elapsedMs(), 0u);
    EXPECT_FALSE(watch.running());
}

TEST(Stopwatch, DisplayPlacementByScreen) {
    struct Case {
        int width, height;
        bool secondDisplay;
        int clientWidth, clientHeight;
        std::optional<DisplayPlacement> placement;
    };
    const Case cases[] = {
        {480, 640, false, 480, 600, DisplayPlacement{90, 225, 300, 150}},
        {640, 480, false, 640, 440, DisplayPlacement{170, 145, 300, 150}},
        {240, 320, false, 240, 300, DisplayPlacement{10, 95, 220, 110}},
        // Too narrow for 220: the small size instead of cut-off digits.
        {176, 220, false, 176, 200, DisplayPlacement{11, 60, 154, 80}},
        {240, 320, false, 219, 300, DisplayPlacement{32, 110, 154, 80}},
        // Low-resolution landscape centres on one pixel less.
        {320, 240, false, 320, 220, DisplayPlacement{49, 55, 220, 110}},
        {220, 176, false, 220, 156, DisplayPlacement{0, 23, 220, 110}},
        // The second display flag.
        {480, 640, true, 480, 600, DisplayPlacement{130, 245, 220, 110}},
        {640, 480, true, 641, 440, DisplayPlacement{210, 165, 220, 110}},
        {176, 220, true, 176, 200, DisplayPlacement{11, 60, 154, 80}},
        {240, 320, true, 240, 300, DisplayPlacement{43, 110, 154, 80}},
        {320, 240, true, 320, 220, std::nullopt},
        {220, 176, true, 220, 156, std::nullopt},
    };
    for (const Case& c : cases) {
        const auto profile = deviceProfile(c.width, c.height, c.secondDisplay);
        ASSERT_TRUE(profile);
        EXPECT_EQ(stopwatchDisplayPlacement(*profile, c.clientWidth, c.clientHeight), c.placement)
            << c.width << "x" << c.height << " second " << c.secondDisplay;
    }
}

} // namespace
} // namespace zonara

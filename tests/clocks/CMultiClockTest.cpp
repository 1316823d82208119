#include "clocks/CMultiClock.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <gtest/gtest.h>
#include <memory>

#include "clocks/CSmallClock.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

#include "support/SlotCity.h"

namespace zonara {
namespace {

// London, Tokyo, New York, Kolkata; Tokyo selected.
Settings fourCities() {
    Settings s;
    s.slots = {test::slotCity(u"London", 85, 0, -0.06f, 51.51f),
               test::slotCity(u"Tokyo", 235, 0, 139.69f, 35.69f),
               test::slotCity(u"New York", 35, 0, -74.0f, 40.71f),
               test::slotCity(u"Kolkata", 190, 0, 88.36f, 22.57f)};
    s.selectedSlot = 1;
    return s;
}

QRect toQRect(const PixelRect& r) {
    return QRect(r.left, r.top, r.width(), r.height());
}

struct Page {
    SystemTime utc = *parseIsoUtc("2026-01-15T02:00:00Z");
    std::vector<int> chosen;
    test::TempDir root;
    std::unique_ptr<CMultiClock> page;
    DstRuleList rules;
    Settings settings = fourCities();

    explicit Page(int w = 480, int h = 640, QWidget* parent = nullptr) {
        // The shipped faces.
        const Paths paths(root.path());
        std::filesystem::create_directories(paths.graphicsDir());
        for (const ClockFace& face : clockFaces)
            std::filesystem::copy_file(test::sourceDir() / "graphics" / face.file,
                                       paths.graphicsFile(face.file));
        const ClockSource clock =
            ClockSource::driven([this] { return utc; }, []() -> std::uint64_t { return 0; });
        page =
            std::make_unique<CMultiClock>(ViewSetup{paths, clock, *deviceProfile(w, h),
                                                    [this](int slot) { chosen.push_back(slot); }},
                                          parent);
        page->showSlots(settings, rules);
    }
};

TEST(CMultiClock, FourClocksFillThePageAtEveryProfile) {
    for (const auto& [w, h] : {std::pair{480, 640}, std::pair{640, 480}, std::pair{240, 320},
                               std::pair{320, 240}, std::pair{176, 220}}) {
        SCOPED_TRACE(std::to_string(w) + "x" + std::to_string(h));
        Page p(w, h);
        QRegion covered;
        for (int slot = 0; slot < 4; ++slot) {
            const CSmallClock* clock = p.page->clock(slot);
            EXPECT_EQ(clock->geometry(), toQRect(p.page->pageLayout().cells[std::size_t(slot)]));
            covered += clock->geometry();
            // Every clock shows at least its face, name and time, inside its cell.
            const SmallClockLayout& l = clock->layout();
            for (const PixelRect& part : {l.face, l.name, l.time}) {
                EXPECT_FALSE(toQRect(part).isEmpty());
                EXPECT_TRUE(clock->rect().contains(toQRect(part)));
            }
        }
        EXPECT_EQ(covered, QRegion(0, 0, w, h));
    }
}

TEST(CMultiClock, EachClockCountsFromTheSelectedSlot) {
    Page p;
    struct Row {
        const char* name;
        const char* time;
        const char* difference;
        CSmallClock::Mark mark;
    };
    // 02:00 UTC: 11:00 in Tokyo.
    const Row rows[] = {
        {"London", "02:00 AM", "\u22129", CSmallClock::Mark::None},
        {"Tokyo", "11:00 AM", "", CSmallClock::Mark::Selected},
        {"New York", "09:00 PM", "\u221214 yesterday", CSmallClock::Mark::None},
        {"Kolkata", "07:30 AM", "\u22123:30", CSmallClock::Mark::None},
    };
    for (int slot = 0; slot < 4; ++slot) {
        SCOPED_TRACE(slot);
        const Row& r = rows[slot];
        const CSmallClock* clock = p.page->clock(slot);
        EXPECT_EQ(clock->state().texts.name, r.name);
        EXPECT_EQ(clock->state().texts.time, r.time);
        EXPECT_EQ(clock->state().texts.differenceLine(), r.difference);
        EXPECT_EQ(clock->mark(), r.mark);
    }
    // Another selected slot moves the mark and every difference, in 24-hour time.
    p.settings.selectedSlot = 3;
    p.settings.use24Hour = 1;
    p.page->showSlots(p.settings, p.rules);
    EXPECT_EQ(p.page->clock(1)->state().texts.differenceLine(), "+3:30");
    EXPECT_EQ(p.page->clock(1)->state().texts.time, "11:00");
    EXPECT_EQ(p.page->clock(3)->mark(), CSmallClock::Mark::Selected);
    EXPECT_EQ(p.page->clock(1)->mark(), CSmallClock::Mark::None);
}

TEST(CMultiClock, ClicksAndEnterChooseASlotOtherKeysReachTheFrame) {
    struct Frame : QWidget {
        std::vector<int> keys;
        void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    } frame;
    Page p(640, 480, &frame);
    // A click anywhere in a clock's cell chooses it.
    for (const int slot : {2, 0, 3}) {
        const QRect cell = toQRect(p.page->pageLayout().cells[std::size_t(slot)]);
        for (const QPoint at : {cell.center(), cell.bottomRight(), cell.topLeft()}) {
            QMouseEvent click(QEvent::MouseButtonPress, at, p.page->mapToGlobal(at), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(p.page.get(), &click);
        }
        EXPECT_EQ(p.chosen, std::vector<int>(3, slot));
        p.chosen.clear();
    }
    struct Row {
        int key;
        const char* text;
        int cursor; // where Enter would choose afterwards
        int chosen; // what was chosen, -1 nothing
        bool reachesFrame;
    };
    const Row rows[] = {
        {Qt::Key_Right, "", 0, -1, false}, // after the last click on 3: wraps to 0
        {Qt::Key_Left, "", 3, -1, false},    {Qt::Key_Left, "", 2, -1, false},
        {Qt::Key_Return, "\r", 2, 2, false}, {Qt::Key_Enter, "\r", 2, 2, false},
        {Qt::Key_Up, "", 2, -1, true},       {Qt::Key_Down, "", 2, -1, true},
        {Qt::Key_1, "1", 2, -1, true},       {Qt::Key_2, "2", 2, -1, true},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.key);
        frame.keys.clear();
        p.chosen.clear();
        QKeyEvent press(QEvent::KeyPress, r.key, Qt::NoModifier, r.text);
        QCoreApplication::sendEvent(p.page.get(), &press);
        EXPECT_EQ(p.page->cursorSlot(), r.cursor);
        EXPECT_EQ(p.chosen, r.chosen >= 0 ? std::vector<int>{r.chosen} : std::vector<int>{});
        EXPECT_EQ(frame.keys, r.reachesFrame ? std::vector<int>{r.key} : std::vector<int>{});
        // The cursor is marked unless it is on the selected clock.
        for (int slot = 0; slot < 4; ++slot)
            EXPECT_EQ(p.page->clock(slot)->mark() == CSmallClock::Mark::Cursor,
                      slot == r.cursor && slot != p.settings.selectedSlot);
    }
    // When the frame selects another slot the cursor follows it.
    p.settings.selectedSlot = 0;
    p.page->showSlots(p.settings, p.rules);
    EXPECT_EQ(p.page->cursorSlot(), 0);
}

TEST(CMultiClock, TicksOnlyWhileShownAndRedrawsOnlyTheFaces) {
    QWidget window;
    Page p(240, 320, &window);
    EXPECT_FALSE(p.page->refreshTimer().isActive());
    window.show();
    EXPECT_TRUE(p.page->refreshTimer().isActive());
    p.utc.second = 1;
    p.page->tick();
    for (int slot = 0; slot < 4; ++slot)
        EXPECT_EQ(p.page->clock(slot)->lastChange(),
                  QRegion(toQRect(p.page->clock(slot)->layout().face)));
    window.hide();
    EXPECT_FALSE(p.page->refreshTimer().isActive());
}

} // namespace
} // namespace zonara

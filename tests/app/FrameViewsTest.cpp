#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "app/frame/CMainFrame.h"
#include "clocks/CMultiClock.h"
#include "clocks/CSmallClock.h"
#include "controls/CommandIds.h"
#include "globe/CGlobe.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

// London, Tokyo, New York and Sydney in the slots, the globe shown; the shipped pictures.
Paths prepareRoot(const std::filesystem::path& root) {
    const Paths paths = test::writeWorld(root, {{"United Kingdom", {test::sampleCity("London")}}});
    test::writeRules(paths);
    std::filesystem::copy(test::sourceDir() / "graphics", paths.graphicsDir(),
                          std::filesystem::copy_options::recursive);
    Settings settings;
    const float longitudes[4] = {-0.06f, 139.69f, -74.0f, 151.21f};
    for (std::size_t i = 0; i < 4; ++i)
        settings.slots[i].longitude = longitudes[i];
    settings.currentView = 1;
    EXPECT_TRUE(settings.Save(paths.dataFile(settingsFileName)));
    return paths;
}

TEST(FrameViews, GlobeAndMultiClockAnswerKeysAndClicksThroughTheFrame) {
    test::TempDir dir;
    const Paths paths = prepareRoot(dir.path());
    CMainFrame frame(paths, ClockSource::fixedAt(*parseIsoUtc("2026-07-01T12:00:00Z")),
                     *deviceProfile(240, 320));
    frame.show();
    frame.deferredStart();
    QCoreApplication::processEvents();
    ASSERT_EQ(frame.shownView(), 1);
    auto* globe = dynamic_cast<CGlobe*>(frame.view(1));
    auto* multi = dynamic_cast<CMultiClock*>(frame.view(2));
    ASSERT_NE(globe, nullptr);
    ASSERT_NE(multi, nullptr);
    EXPECT_EQ(globe->shadingCount(), 1);

    // The globe on the 320-column map is centred on the selected city, 120 columns left.
    struct Row {
        QWidget* to;
        int key;
        const char* text;
        int slot, view, scroll;
    };
    const Row rows[] = {
        {globe, 0, "", 0, 1, 159 - 120},          // London, as shown
        {globe, Qt::Key_Up, "", 3, 1, 294 - 120}, // Sydney
        {globe, Qt::Key_Down, "", 0, 1, 159 - 120},
        {globe, Qt::Key_Down, "", 1, 1, 284 - 120}, // Tokyo
        {globe, Qt::Key_Right, "", 1, 1, 284 - 110},
        {globe, Qt::Key_3, "3", 1, 2, 284 - 110},
        {multi, Qt::Key_Down, "", 2, 2, 284 - 110},
        {multi, Qt::Key_1, "1", 2, 1, 94 - 120 + 320}, // New York, centred anew on showing
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.key);
        if (r.key != 0) {
            QKeyEvent press(QEvent::KeyPress, r.key, Qt::NoModifier, r.text);
            QCoreApplication::sendEvent(r.to, &press);
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(frame.settings().selectedSlot, r.slot);
        EXPECT_EQ(frame.shownView(), r.view);
        EXPECT_EQ(globe->model().scrollOffset(), r.scroll);
    }

    // A click on a small clock selects its slot for every view.
    frame.onCommand(cmd::MultiClock);
    const PixelRect cell = multi->pageLayout().cells[3];
    const QPoint at((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
    QMouseEvent click(QEvent::MouseButtonPress, at, multi->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(multi, &click);
    EXPECT_EQ(frame.settings().selectedSlot, 3);
    EXPECT_EQ(multi->clock(3)->mark(), CSmallClock::Mark::Selected);
    EXPECT_EQ(multi->clock(2)->mark(), CSmallClock::Mark::None);
}

} // namespace
} // namespace zonara

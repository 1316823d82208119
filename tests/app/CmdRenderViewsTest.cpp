#include <filesystem>
#include <string>

#include <QImage>
#include <gtest/gtest.h>

#include "app/OffscreenApp.h"
#include "clocks/CMultiClock.h"
#include "core/Settings.h"
#include "globe/CGlobe.h"
#include "support/CommandRunner.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

// render globe and render multi. Each picture written is compared with the view drawn
// in-process for the same settings and instant, which checks what the command adds: the
// slot, the scroll, the screen, the map alone, and the refusals.
class CmdRenderViewsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(paths.dataDir());
        std::filesystem::copy(test::sourceDir() / "graphics", paths.graphicsDir(),
                              std::filesystem::copy_options::recursive);
        const float places[4][2] = {
            {-0.06f, 51.51f}, {139.69f, 35.69f}, {-74.0f, 40.71f}, {151.21f, -33.87f}};
        const std::u16string names[4] = {u"London", u"Tokyo", u"New York", u"Sydney"};
        const int zones[4] = {85, 235, 35, 255};
        for (std::size_t i = 0; i < 4; ++i) {
            settings.slots[i].cityName = names[i];
            settings.slots[i].longitude = places[i][0];
            settings.slots[i].latitude = places[i][1];
            settings.slots[i].timeZoneIndex = zones[i];
            settings.slots[i].dstRuleIndex = 0;
        }
        settings.selectedSlot = 1;
        ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName)));
    }

    test::CommandResult run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--root", root.path().string(), "--at", at});
        return test::runZonara(words);
    }
    static QImage load(const std::filesystem::path& file) {
        return QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
    }

    ViewSetup setup(int width, int height) {
        return ViewSetup{
            paths, ClockSource::fixedAt(*parseIsoUtc(at)), *deviceProfile(width, height), {}};
    }

    // The globe as the window shows it once shaded, with slot selected.
    std::unique_ptr<CGlobe> globe(int slot, int width = 480, int height = 640) {
        auto view = std::make_unique<CGlobe>(setup(width, height));
        Settings shown = settings;
        shown.selectedSlot = slot;
        view->Show();
        view->showSlots(shown, rules);
        return view;
    }

    OffscreenApp app;
    test::TempDir root;
    Paths paths{root.path()};
    Settings settings;
    DstRuleList rules;
    std::string at = "2024-04-23T05:30:15Z";
    std::filesystem::path out = root.path() / "out.png";
};

TEST_F(CmdRenderViewsTest, DrawsTheGlobeAsTheWindowShowsIt) {
    struct Case {
        std::vector<std::string> extra;
        int slot, width, height;
        int scroll; // -1: centred
        const char* said;
    };
    const Case cases[] = {
        {{}, 1, 480, 640, -1, "globe on Tokyo at 05:30:15 UTC (slot 1, scroll 328, 480x640)"},
        {{"--slot", "3"}, 3, 480, 640, -1, "globe on Sydney"},
        {{"--scroll", "0"}, 1, 480, 640, 0, "scroll 0,"},
        {{"--scroll", "639"}, 1, 480, 640, 639, "scroll 639,"},
        {{"--screen", "176x220", "--slot", "2"}, 2, 176, 220, -1, "176x220"},
        {{"--screen", "320x240", "--scroll", "100"}, 1, 320, 240, 100, "scroll 100, 320x240"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.said);
        std::vector<std::string> words{"render", "globe", "--out", out.string()};
        words.insert(words.end(), c.extra.begin(), c.extra.end());
        const test::CommandResult result = run(words);
        ASSERT_EQ(result.exitCode, 0) << result.err;
        EXPECT_NE(result.out.find(c.said), std::string::npos) << result.out;
        auto view = globe(c.slot, c.width, c.height);
        if (c.scroll >= 0)
            view->setScrollOffset(c.scroll);
        EXPECT_EQ(load(out), view->renderImage());
    }
    // Another slot is another picture.
    ASSERT_EQ(run({"render", "globe", "--out", out.string()}).exitCode, 0);
    EXPECT_NE(load(out), globe(0)->renderImage());
}

TEST_F(CmdRenderViewsTest, DrawsTheShadedMapAlone) {
    for (const auto& [screen, size] :
         {std::pair{"480x640", QSize(640, 320)}, std::pair{"240x320", QSize(320, 160)}}) {
        SCOPED_TRACE(screen);
        const test::CommandResult result =
            run({"render", "globe", "--map", "--screen", screen, "--out", out.string()});
        ASSERT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(load(out).size(), size);
        const QSize screenSize =
            std::string(screen) == "480x640" ? QSize(480, 640) : QSize(240, 320);
        EXPECT_EQ(load(out), globe(1, screenSize.width(), screenSize.height())->mapImage());
        // No markers: the map is the same whichever slot is selected.
        ASSERT_EQ(run({"render", "globe", "--map", "--slot", "3", "--screen", screen, "--out",
                       out.string()})
                      .exitCode,
                  0);
        EXPECT_EQ(load(out), globe(1, screenSize.width(), screenSize.height())->mapImage());
    }
}

TEST_F(CmdRenderViewsTest, DrawsTheMultiClockPageAsTheWindowShowsIt) {
    for (const auto& [screen, w, h] :
         {std::tuple{"480x640", 480, 640}, std::tuple{"640x480", 640, 480},
          std::tuple{"176x220", 176, 220}}) {
        SCOPED_TRACE(screen);
        const test::CommandResult result =
            run({"render", "multi", "--screen", screen, "--out", out.string()});
        ASSERT_EQ(result.exitCode, 0) << result.err;
        EXPECT_NE(result.out.find("selected slot 1"), std::string::npos) << result.out;
        CMultiClock page(setup(w, h));
        page.showSlots(settings, rules);
        const QImage expected = page.renderImage();
        EXPECT_EQ(load(out), expected);
        // The clocks are drawn: the selected one's frame is there.
        const PixelRect cell = page.pageLayout().cells[1];
        EXPECT_EQ(expected.pixel(cell.left + 1, cell.top + 1), qRgb(255, 165, 30));
    }
}

TEST_F(CmdRenderViewsTest, RefusesAScrollOffTheMap) {
    // The map's own width bounds it: 640 columns on the large map, 320 on the small one.
    for (const auto& [screen, scroll, said] :
         {std::tuple{"480x640", "640", "from 0 to 639, not 640"},
          std::tuple{"240x320", "320", "from 0 to 319, not 320"}}) {
        const test::CommandResult result =
            run({"render", "globe", "--screen", screen, "--scroll", scroll, "--out", out.string()});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find(said), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

} // namespace
} // namespace zonara

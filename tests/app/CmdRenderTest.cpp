#include <QImage>
#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "app/OffscreenApp.h"
#include "clocks/CClockDetails.h"
#include "core/Paths.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

#include "core/Settings.h"
#include "core/Text.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

constexpr const char* scheme = R"(<scheme><mainclock>
  <background img="back.png"/>
  <city state="show" font-size="9" font-weight="bold" font-color="#FFFF00" rect="0,0,240,40"
        align="center"/>
  <time rect="0,40,240,80"/>
  <ampm rect="0,80,240,110"/>
  <inettime rect="0,110,240,140"/>
  <clock state="show" rect="20,150,220,300"/>
  <dig_clock state="show" rect="20,300,220,360" fillOn="#FF0000" backFill="#000000"/>
  <moonphase state="show" img="moon.png" rect="0,0,20,20" size="20,20"/>
</mainclock></scheme>)";

class CmdRenderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(paths.graphicsDir());
        QImage back(480, 640, QImage::Format_RGB32);
        back.fill(qRgb(10, 40, 80));
        ASSERT_TRUE(back.save(QString::fromStdString(paths.graphicsFile("back.png").string())));
        QImage moon(160, 20, QImage::Format_RGB32);
        for (int x = 0; x < 160; ++x)
            for (int y = 0; y < 20; ++y)
                moon.setPixel(x, y, qRgb(x, 255 - x, 128));
        ASSERT_TRUE(moon.save(QString::fromStdString(paths.graphicsFile("moon.png").string())));
        writeFile(paths.graphicsFile("test_480x640.xml"), scheme);
        writeFile(paths.graphicsFile("test_240x320.xml"), scheme);
        writeFile(paths.dataFile("daylight40.dat"), "LastSunMar 01:00\tLastSunOct 00:59\r\n");

        settings.skinFile = u"test";
        settings.slots[2].cityName = u"Tokyo";
        settings.slots[2].countryName = u"Japan";
        settings.slots[2].timeZoneIndex = 235; // Tokyo, +09:00
        settings.slots[2].dstRuleIndex = 0;
        save();
    }
    void save() { ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName))); }

    test::CommandResult run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--root", root.path().string(), "--at", at});
        return test::runZonara(words);
    }

    // What the window shows for the same settings.
    QImage window(std::size_t slot, int width = 480, int height = 640) {
        DstRuleList rules{{"LastSunMar 01:00", "LastSunOct 00:59"}};
        CClockDetails view(paths, ClockSource::fixedAt(*parseIsoUtc(at)),
                           *deviceProfile(width, height));
        view.SetRules(&rules);
        view.SetUse24Hour(settings.use24Hour != 0);
        view.SetCity(settings.slots[slot]);
        view.ApplySkin(toUtf8(settings.skinFile));
        return view.renderImage();
    }

    static QImage load(const std::filesystem::path& file) {
        return QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
    }

    OffscreenApp app;
    TempDir root;
    Paths paths{root.path()};
    Settings settings;
    std::string at = "2024-04-23T22:30:15Z";
};

TEST_F(CmdRenderTest, DrawsTheFullClockAsTheWindowDoes) {
    const auto file = root.path() / "full.png";
    test::CommandResult result = run({"render", "full", "--out", file.string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("London at 23:30:15"), std::string::npos) << result.out;
    QImage drawn = load(file);
    ASSERT_EQ(drawn.size(), QSize(480, 640));
    EXPECT_EQ(drawn, window(0));
    // The yellow city name is there, over the background.
    int ink = 0;
    for (int x = 0; x < 240; ++x)
        for (int y = 0; y < 40; ++y)
            ink += drawn.pixel(x, y) == qRgb(255, 255, 0);
    EXPECT_GT(ink, 20);

    // Another slot, the 24-hour setting and a smaller screen.
    settings.use24Hour = 1;
    save();
    result = run({"render", "full", "--slot", "2", "--screen", "240x320", "--out", file.string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("Tokyo at 07:30:15"), std::string::npos) << result.out;
    drawn = load(file);
    EXPECT_EQ(drawn.size(), QSize(240, 320));
    EXPECT_EQ(drawn, window(2, 240, 320));
    EXPECT_NE(drawn, window(0, 240, 320));
}

TEST_F(CmdRenderTest, RefusesWhatItCannotDraw) {
    const std::string out = (root.path() / "x.png").string();
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case cases[] = {
        {{"render", "globe", "--out", out}, "full"},
        {{"render", "full"}, "--out"},
        {{"render", "full", "--out", out, "--slot", "4"}, "--slot"},
        {{"render", "full", "--out", out, "--screen", "300x300"}, "300x300"},
        {{"render", "full", "--out", out, "--skin", "nosuch"}, "nosuch"},
        {{"render", "full", "--out", out, "--frame"}, "--frame"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        const test::CommandResult result = run(c.words);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
}

} // namespace
} // namespace zonara

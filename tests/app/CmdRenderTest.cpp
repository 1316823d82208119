#include <filesystem>
#include <string>

#include <QImage>
#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "app/OffscreenApp.h"
#include "clocks/CAnalogueClock.h"
#include "clocks/CClockDetails.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "clocks/SkinScheme.h"
#include "core/Paths.h"
#include "core/Settings.h"
#include "core/Text.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::writeFile;

// render and render-clock. The engines' pixels are tested with the clocks; here
// each picture written is compared once with the same drawing made in-process,
// which checks what the commands add: the skin's scheme, rectangle and
// background offset, the selected slot's local time, the 24-hour setting,
// --slot, --screen, --size, and the refusals.
constexpr const char* scheme = R"(<scheme><mainclock><background img="face.png"/>
  <city state="show" font-size="9" font-color="#FFFF00" rect="0,0,240,40" align="center"/>
  <time rect="0,40,240,80"/><clock state="show" rect="40,60,240,220"/>
  <dig_clock state="show" rect="10,300,310,400" fillOn="#FF0000" backFill="#000020"/>
</mainclock></scheme>)";

class CmdRenderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(paths.graphicsDir());
        QImage face(480, 640, QImage::Format_RGB32);
        for (int y = 0; y < face.height(); ++y)
            for (int x = 0; x < face.width(); ++x)
                face.setPixel(x, y, qRgb(x % 256, y % 256, 200)); // every pixel tells where
        ASSERT_TRUE(face.save(QString::fromStdString(paths.graphicsFile("face.png").string())));
        writeFile(paths.graphicsFile("test_480x640.xml"), scheme);
        writeFile(paths.graphicsFile("test_240x320.xml"), scheme);
        writeFile(paths.dataFile("daylight40.dat"), "LastSunMar 01:00\tLastSunOct 00:59\r\n");
        settings.skinFile = u"test";
        settings.selectedSlot = 2;
        settings.slots[2].cityName = u"Tokyo";
        settings.slots[2].timeZoneIndex = 235; // +09:00
        settings.slots[2].dstRuleIndex = 0;
        save();
    }
    void save() { ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName))); }

    test::CommandResult run(std::vector<std::string> words) {
        words.insert(words.begin(), {"--root", root.path().string(), "--at", at});
        return test::runZonara(words);
    }
    static QImage load(const std::filesystem::path& file) {
        return QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
    }

    // What the window's full clock shows for the same settings.
    QImage window(std::size_t slot, int width = 480, int height = 640) {
        DstRuleList rules{{"LastSunMar 01:00", "LastSunOct 00:59"}};
        CClockDetails view(paths, ClockSource::fixedAt(*parseIsoUtc(at)),
                           *deviceProfile(width, height));
        view.setRules(&rules);
        view.setUse24Hour(settings.use24Hour != 0);
        view.setCity(settings.slots[slot]);
        view.applySkin(toUtf8(settings.skinFile));
        return view.renderImage();
    }

    // The skin's clock alone at hour:30:15.
    QImage clock(bool analogue, int hour, bool use24Hour, QSize size) {
        CXMLParser parser;
        EXPECT_TRUE(found(parser.Create()));
        EXPECT_TRUE(found(parser.Load(paths.graphicsFile("test_480x640.xml"))));
        SkinRect rect;
        if (analogue) {
            CAnalogueClock clock(ClockSource::fixedAt(SystemTime{}));
            EXPECT_TRUE(clock.engine().readScheme(parser, schemePrefix, rect));
            clock.resize(size);
            const QImage face = load(paths.graphicsFile("face.png"));
            clock.setBackground(face, QPoint(40, 60)); // the rectangle's corner
            clock.setTime(hour, 30, 15);
            return clock.render().convertToFormat(QImage::Format_RGB32);
        }
        CDigitalClock clock;
        EXPECT_TRUE(clock.engine().readScheme(parser, schemePrefix, rect));
        clock.resize(size);
        clock.setUse24Hour(use24Hour);
        clock.setTime(hour, 30, 15);
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::black);
        clock.renderTo(image);
        return image;
    }

    OffscreenApp app;
    test::TempDir root;
    Paths paths{root.path()};
    Settings settings;
    std::string at = "2024-04-23T05:30:15Z"; // 14:30:15 in Tokyo, 06:30:15 in London
    std::filesystem::path out = root.path() / "out.png";
};

TEST_F(CmdRenderTest, DrawsTheFullClockAsTheWindowDoes) {
    test::CommandResult result = run({"render", "full", "--out", out.string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("Tokyo at 14:30:15"), std::string::npos) << result.out;
    EXPECT_EQ(load(out).size(), QSize(480, 640));
    EXPECT_EQ(load(out), window(2));

    // Another slot, the 24-hour setting and a smaller screen.
    settings.use24Hour = 1;
    save();
    result = run({"render", "full", "--slot", "0", "--screen", "240x320", "--out", out.string()});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_NE(result.out.find("London at 06:30:15"), std::string::npos) << result.out;
    EXPECT_EQ(load(out), window(0, 240, 320));
    EXPECT_NE(load(out), window(2, 240, 320));
}

TEST_F(CmdRenderTest, DrawsTheSelectedSlotsClockAsTheWindowDoes) {
    struct Case {
        const char* which;
        bool use24Hour;
        std::vector<std::string> extra;
        QSize size;
        const char* said;
    };
    const Case cases[] = {
        {"analogue", false, {}, {200, 160}, "analogue clock at 14:30:15 (200x160)"},
        {"analogue", true, {"--size", "120x100"}, {120, 100}, "(120x100)"},
        {"digital", false, {}, {300, 100}, "digital clock at 14:30:15 (300x100)"},
        {"digital", true, {}, {300, 100}, "(300x100)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.which) + (c.use24Hour ? " 24h" : " 12h"));
        settings.use24Hour = c.use24Hour ? 1 : 0;
        save();
        std::vector<std::string> words{"render-clock", c.which, "--out", out.string()};
        words.insert(words.end(), c.extra.begin(), c.extra.end());
        const auto r = run(words);
        ASSERT_EQ(r.exitCode, 0) << r.err;
        EXPECT_NE(r.out.find(c.said), std::string::npos) << r.out;
        // The analogue dial takes 12-hour time and ignores the setting.
        const bool analogue = std::string(c.which) == "analogue";
        const int hour = analogue ? 2 : 14;
        EXPECT_EQ(load(out).size(), c.size);
        EXPECT_EQ(load(out), clock(analogue, hour, c.use24Hour, c.size));
        EXPECT_EQ(load(out) == clock(analogue, hour, !c.use24Hour, c.size), analogue);
    }
}

TEST_F(CmdRenderTest, RefusesWhatItCannotDraw) {
    writeFile(paths.graphicsFile("bare_480x640.xml"),
              R"(<scheme><mainclock><clock state="hide" rect="0,0,10,10"/></mainclock></scheme>)");
    writeFile(paths.graphicsFile("nopic_480x640.xml"), R"(<scheme><mainclock>
        <background img="gone.png"/><clock state="show" rect="0,0,100,100"/>
        <dig_clock state="show"/></mainclock></scheme>)");
    const std::string o = out.string();
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case cases[] = {
        {{"render", "sundial", "--out", o}, "say what to draw first: full, globe, multi"},
        {{"render", "--out", o, "full"}, "say what to draw first"},
        {{"render", "full"}, "--out FILE is required"},
        {{"render", "full", "--out", o, "--slot", "4"}, "--slot"},
        {{"render", "full", "--out", o, "--screen", "300x300"}, "300x300"},
        {{"render", "full", "--out", o, "--skin", "nosuch"}, "nosuch"},
        {{"render", "full", "--out", o, "--frame"}, "--frame"},
        {{"render", "globe"}, "--out FILE is required"},
        {{"render", "globe", "--out", o, "--scroll", "-1"}, "--scroll wants a map column"},
        {{"render", "globe", "--out", o, "--scroll", "x"}, "not 'x'"},
        {{"render", "globe", "--out", o, "--slot", "4"}, "--slot"},
        {{"render", "globe", "--out", o, "--skin", "default"}, "--skin"},
        {{"render", "globe", "--out", o}, "no map picture at"}, // this root has none
        {{"render", "multi", "--out", o, "--slot", "1"}, "--slot"},
        {{"render", "multi", "--out", o, "--screen", "300x300"}, "300x300"},
        {{"render", "multi"}, "--out FILE is required"},
        {{"render-clock", "digital", "--out", o, "--skin", "absent"},
         "no scheme for skin 'absent'"},
        {{"render-clock", "digital", "--out", o, "--skin", "bare"}, "dig_clock/@state"},
        {{"render-clock", "analogue", "--out", o, "--skin", "bare"}, "does not show the analogue"},
        {{"render-clock", "analogue", "--out", o, "--skin", "nopic"}, "gone.png"},
        {{"render-clock", "digital", "--out", o, "--skin", "nopic"}, "--size"},
        {{"render-clock", "digital", "--out", o, "--size", "0x5"}, "--size wants WxH"},
        {{"render-clock", "sundial", "--out", o}, "analogue or digital"},
        {{"render-clock", "digital"}, "--out"},
        {{"--screen", "176x220", "render-clock", "digital", "--out", o}, "test_176x220.xml"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        const test::CommandResult result = run(c.words);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find(c.message), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(out));
    }
    // An empty rectangle with --size given is drawn.
    const auto sized =
        run({"render-clock", "digital", "--skin", "nopic", "--size", "200x40", "--out", o});
    EXPECT_EQ(sized.exitCode, 0) << sized.err;
    EXPECT_EQ(load(out).size(), QSize(200, 40));
}

} // namespace
} // namespace zonara

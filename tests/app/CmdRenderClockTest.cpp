#include <filesystem>
#include <string>

#include <QImage>
#include <gtest/gtest.h>

#include "clocks/ColorRef.h"
#include "clocks/DigitalClock.h"
#include "clocks/QImageSurface.h"
#include "core/Paths.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

#include "core/Settings.h"

namespace zonara {
namespace {

using test::runZonara;
using test::writeFile;

constexpr ColorRef hourInk = rgb(0x10, 0x10, 0x10);
constexpr ColorRef minuteInk = rgb(0x20, 0x20, 0x60);
constexpr ColorRef secondInk = rgb(0xD0, 0x20, 0x20);
constexpr ColorRef fillOn = rgb(0xFD, 0x58, 0x1B);
constexpr ColorRef fillOff = rgb(0x1E, 0x1E, 0x1E);
constexpr ColorRef backFill = rgb(0, 0, 0x20);

// A background whose every pixel tells where it is.
QRgb backgroundAt(int x, int y) {
    return qRgb(x % 256, y % 256, 200);
}

class CmdRenderClockTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(paths.graphicsDir());
        std::filesystem::create_directories(paths.dataDir());
        QImage face(480, 640, QImage::Format_RGB32);
        for (int y = 0; y < face.height(); ++y)
            for (int x = 0; x < face.width(); ++x)
                face.setPixel(x, y, backgroundAt(x, y));
        ASSERT_TRUE(face.save(QString::fromStdString(paths.graphicsFile("face.png").string())));
        writeScheme("test_480x640.xml", R"(<background img="face.png"/>
            <clock state="show" rect="40,60,240,220">
              <hourhand outline-color="#101010"/><minutehand outline-color="#202060"/>
              <secondhand outline-color="#D02020"/></clock>
            <dig_clock state="show" rect="10,300,310,400" fillOn="#FD581B" fillOff="#1E1E1E"
              borderOn="#FFA070" borderOff="#282828" backFill="#000020"/>)");
    }
    void writeScheme(const std::string& name, const std::string& body) {
        writeFile(paths.graphicsFile(name), "<scheme><mainclock>" + body + "</mainclock></scheme>");
    }
    // Slot 1 selected, in a zone five hours ahead of UTC without daylight saving.
    void selectEastSlot(bool use24Hour) {
        Settings settings;
        settings.skinFile = u"test";
        settings.selectedSlot = 1;
        settings.slots[1].timeZoneIndex = 185;
        settings.slots[1].dstRuleIndex = 0;
        settings.use24Hour = use24Hour ? 1 : 0;
        ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName)));
    }
    test::CommandResult render(const std::string& which, const std::string& at,
                               std::vector<std::string> extra = {}) {
        std::vector<std::string> words{"--root", dir.path().string(), "--at",
                                       at,       "render-clock",      which,
                                       "--out",  out().string()};
        words.insert(words.end(), extra.begin(), extra.end());
        return runZonara(words);
    }
    std::filesystem::path out() const { return dir.path() / "clock.png"; }
    QImage picture() const { return QImage(QString::fromStdString(out().string())); }

    test::TempDir dir;
    Paths paths{dir.path()};
};

ColorRef at(const QImage& image, int x, int y) {
    return fromQRgb(image.pixel(x, y));
}

TEST_F(CmdRenderClockTest, AnalogueClockOverItsPartOfTheBackground) {
    selectEastSlot(false);
    // 22:00:30 UTC is 03:00:30 in the selected slot's zone.
    const auto r = render("analogue", "2026-03-01T22:00:30Z");
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("03:00:30"), std::string::npos) << r.out;
    const QImage image = picture();
    ASSERT_EQ(image.size(), QSize(200, 160));
    // Window 200x160: centre (100, 80), radius 80, size class 2.
    EXPECT_EQ(at(image, 130, 80), hourInk);    // hour hand to the right (index 15)
    EXPECT_EQ(at(image, 100, 40), minuteInk);  // minute hand up
    EXPECT_EQ(at(image, 100, 120), secondInk); // second hand down
    EXPECT_EQ(at(image, 100, 70), secondInk);  // and its tail, drawn last
    // Minute hand tip: 80·72/100 = 57, 7999·57/7000 = 65.
    EXPECT_EQ(at(image, 100, 15), minuteInk);
    EXPECT_EQ(image.pixel(100, 14), backgroundAt(140, 74));
    // Away from the hands the picture is the background at the clock's offset.
    for (const QPoint p : {QPoint(0, 0), QPoint(199, 159), QPoint(20, 130), QPoint(170, 30)})
        EXPECT_EQ(image.pixel(p), backgroundAt(40 + p.x(), 60 + p.y())) << p.x() << "," << p.y();
    // The fan's top line runs from (100, 78) to (145, 80): adj = 2912, so ten
    // steps along the accumulator holds 29120 and w = 113; the hand is darker
    // than the background (150, 138, 200), which keeps 113/255 of itself.
    EXPECT_EQ(at(image, 110, 78), rgb(75, 70, 97));

    const auto sized = render("analogue", "2026-03-01T22:00:30Z", {"--size", "120x100"});
    ASSERT_EQ(sized.exitCode, 0) << sized.err;
    EXPECT_EQ(picture().size(), QSize(120, 100));
    EXPECT_EQ(at(picture(), 80, 50), hourInk); // centre (60, 50), radius 50
}

TEST_F(CmdRenderClockTest, DigitalClockFollowsTheTwentyFourHourSetting) {
    const auto boxes = digitBoxes(300, 100);
    const auto litAt = [&](const QImage& image, int digit, Segment s) {
        const PixelRect r = segmentRect(boxes[std::size_t(digit)], s);
        const ColorRef c = at(image, (r.left + r.right) / 2, (r.top + r.bottom) / 2);
        EXPECT_TRUE(c == fillOn || c == fillOff) << digit << " " << int(s);
        return c == fillOn;
    };
    struct Case {
        bool use24Hour;
        const char* utc;
        int firstDigit, secondDigit;
        bool pmLit;
    };
    // 08:00 UTC is 13:00 in the zone; 19:05 UTC is 00:05.
    for (const Case c : {Case{false, "2026-03-01T08:00:00Z", 0, 1, true},
                         Case{true, "2026-03-01T08:00:00Z", 1, 3, true},
                         Case{false, "2026-03-01T19:05:00Z", 1, 2, false},
                         Case{true, "2026-03-01T19:05:00Z", 0, 0, false}}) {
        SCOPED_TRACE(std::string(c.utc) + (c.use24Hour ? " 24h" : " 12h"));
        selectEastSlot(c.use24Hour);
        const auto r = render("digital", c.utc);
        ASSERT_EQ(r.exitCode, 0) << r.err;
        const QImage image = picture();
        ASSERT_EQ(image.size(), QSize(300, 100));
        EXPECT_EQ(at(image, 1, 1), backFill);
        // 0 has no middle; 1 has no top; 2 has no lower right; 3 has no upper left.
        const auto check = [&](int digit, int value) {
            EXPECT_EQ(litAt(image, digit, Segment::Middle), value != 0 && value != 1);
            EXPECT_EQ(litAt(image, digit, Segment::Top), value != 1);
            EXPECT_EQ(litAt(image, digit, Segment::LowerRight), value != 2);
            EXPECT_EQ(litAt(image, digit, Segment::UpperLeft), value == 0);
        };
        check(0, c.firstDigit);
        check(1, c.secondDigit);
        int pmOn = 0;
        int amOn = 0;
        for (int y = 0; y < 10; ++y)
            for (int x = 288; x < 300; ++x) {
                amOn += at(image, x, 2 + y) == fillOn;
                pmOn += at(image, x, 12 + y) == fillOn;
            }
        EXPECT_EQ(pmOn > 0, c.pmLit);
        EXPECT_EQ(amOn > 0, !c.pmLit);
    }
}

TEST_F(CmdRenderClockTest, MissingSkinsKeysAndPicturesAreErrors) {
    selectEastSlot(false);
    const std::string at = "2026-03-01T08:00:00Z";
    auto r = render("digital", at, {"--skin", "absent"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("no scheme for skin 'absent'"), std::string::npos) << r.err;
    EXPECT_FALSE(std::filesystem::exists(out()));

    writeScheme("bare_480x640.xml", R"(<clock state="hide" rect="0,0,10,10"/>)");
    r = render("digital", at, {"--skin", "bare"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("dig_clock/@state"), std::string::npos) << r.err;
    r = render("analogue", at, {"--skin", "bare"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("does not show the analogue clock"), std::string::npos) << r.err;

    writeScheme("nopic_480x640.xml", R"(<background img="gone.png"/>
        <clock state="show" rect="0,0,100,100"/><dig_clock state="show"/>)");
    r = render("analogue", at, {"--skin", "nopic"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("gone.png"), std::string::npos) << r.err;
    r = render("digital", at, {"--skin", "nopic"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("--size"), std::string::npos) << r.err;
    r = render("digital", at, {"--skin", "nopic", "--size", "200x40"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(picture().size(), QSize(200, 40));

    // Another screen size has no scheme of this skin.
    r = runZonara({"--root", dir.path().string(), "--screen", "240x320", "render-clock", "digital",
                   "--out", out().string()});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("test_240x320.xml"), std::string::npos) << r.err;

    EXPECT_EQ(runZonara({"--root", dir.path().string(), "render-clock", "sundial", "--out",
                         out().string()})
                  .exitCode,
              1);
    EXPECT_EQ(runZonara({"--root", dir.path().string(), "render-clock", "digital"}).exitCode, 1);
    EXPECT_EQ(render("digital", at, {"--size", "0x5"}).exitCode, 1);
}

} // namespace
} // namespace zonara

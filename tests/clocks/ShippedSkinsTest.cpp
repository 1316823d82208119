// Every skin shipped under graphics/, read as the full clock reads it, at every
// screen profile: pictures of the right size, fields inside the view and clear
// of each other and of the clocks, and both clocks actually drawn.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QImageReader>
#include <QString>
#include <gtest/gtest.h>

#include "clocks/AnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "clocks/DigitalClock.h"
#include "clocks/QImageSurface.h"
#include "clocks/SkinFiles.h"
#include "clocks/SkinScheme.h"
#include "core/DeviceProfile.h"
#include "core/Paths.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;

constexpr std::pair<int, int> profiles[] = {
    {176, 220}, {240, 320}, {480, 640}, {320, 240}, {640, 480}};

// Right and bottom are exclusive, as everywhere in the view.
struct Box {
    int left, top, right, bottom;
    std::string name;
};

Box boxOf(const SkinRect& r, std::string name) {
    return {r.left, r.top, r.right, r.bottom, std::move(name)};
}

bool overlaps(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

::testing::AssertionResult insideView(const Box& b, int width, int height) {
    if (b.left >= 0 && b.top >= 0 && b.right <= width && b.bottom <= height && b.left < b.right &&
        b.top < b.bottom)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << b.name << " (" << b.left << "," << b.top << "," << b.right << "," << b.bottom
           << ") is not a rectangle inside the " << width << "x" << height << " view";
}

int channelDistance(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

// The widest text each field shows in practice (long and short style where
// they differ); names are common ones, the formats are fixed.
struct Sample {
    std::string_view shortText;
    std::string_view longText;
};
constexpr std::array<Sample, textFieldCount> samples{{
    {"Bosnia and Herzegovina", "Bosnia and Herzegovina"},
    {"Ho Chi Minh City", "Ho Chi Minh City"},
    {"12:59", "12:59"},
    {"12/31/2026", "Wednesday, September 30, 2026"},
    {"WAW", "WAW"},
    {"+49 3528", "+49 3528"},
    {"-12:00", "GMT offset -12:00"},
    {"West Central Africa Standard Time", "West Central Africa Standard Time"},
    {"n\\a", "Daylight Savings n\\a"},
    {"12:59", "12:59"},
    {"12:59", "12:59"},
    {"PM", "PM"},
    {"@999", "@999"},
}};

// The face the view draws its fields in on the offscreen platform.
QFont fieldFont(const TextField& field, int dpi) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(field.fontSize * dpi / 72);
    font.setWeight(field.fontWeight >= 700 ? QFont::Bold : QFont::Medium);
    return font;
}

QString qPath(const fs::path& p) {
    return QString::fromStdString(p.string());
}

// The shipped graphics/ folder seen as ROOT/Graphics, as the build stages it.
class ShippedSkins : public ::testing::Test {
  protected:
    void SetUp() override {
        const fs::path graphics = test::sourceDir() / "graphics";
        ASSERT_TRUE(fs::is_directory(graphics)) << graphics;
        fs::create_directory_symlink(graphics, root.path() / "Graphics");
        paths = Paths(root.path());
    }

    test::TempDir root;
    Paths paths;
};

TEST_F(ShippedSkins, EveryProfileHasTheDefaultAndAnotherSkin) {
    for (const auto& [width, height] : profiles) {
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
        const SkinList list = enumerateSkins(paths, width, height, "default.xml");
        ASSERT_GE(list.names.size(), 2u);
        ASSERT_LT(list.selected, list.names.size());
        EXPECT_EQ(list.names[list.selected], "default.xml");
    }
}

TEST_F(ShippedSkins, LayoutFitsTheViewAndNothingOverlaps) {
    for (const auto& [width, height] : profiles) {
        const std::optional<DeviceProfile> profile = deviceProfile(width, height);
        ASSERT_TRUE(profile.has_value());
        for (const std::string& skin : enumerateSkins(paths, width, height, "").names) {
            SCOPED_TRACE(skin + " at " + std::to_string(width) + "x" + std::to_string(height));
            const fs::path file = schemeFile(paths, skin, width, height);
            const SkinScheme scheme = loadSkinScheme(file, SkinScheme{});

            ASSERT_TRUE(scheme.loadBackground);
            ASSERT_FALSE(scheme.background.empty());
            const QSize backgroundSize =
                QImageReader(qPath(paths.graphicsFile(scheme.background))).size();
            EXPECT_EQ(std::pair(backgroundSize.width(), backgroundSize.height()),
                      std::pair(width, height))
                << scheme.background;

            std::vector<Box> taken;
            int shown = 0;
            for (std::size_t slot = 0; slot < textFieldCount; ++slot) {
                const TextField& field = scheme.fields[slot];
                if (!field.shown)
                    continue;
                ++shown;
                const Box box = boxOf(field.rect, std::string(textFieldNames[slot]));
                EXPECT_TRUE(insideView(box, width, height));
                // The height the view asks its font for, truncated as it is.
                const int pixels = field.fontSize * profile->dpi / 72;
                EXPECT_GE(pixels, 8) << box.name << " is too small to read";
                EXPECT_GE(box.bottom - box.top, pixels) << box.name << " cuts its text off";
                const Sample& sample = samples[slot];
                const std::string_view text = field.shortStyle ? sample.shortText : sample.longText;
                const QFontMetrics metrics(fieldFont(field, profile->dpi));
                EXPECT_LE(metrics.horizontalAdvance(
                              QString::fromUtf8(text.data(), qsizetype(text.size()))),
                          box.right - box.left)
                    << "'" << text << "' does not fit " << box.name;
                taken.push_back(box);
            }
            EXPECT_TRUE(scheme.fields[1].shown && scheme.fields[2].shown && scheme.fields[3].shown)
                << "city, time and date are always on the face";
            EXPECT_GE(shown, 12);

            CXMLParser parser;
            ASSERT_TRUE(found(parser.Create()));
            ASSERT_TRUE(found(parser.Load(file)));
            AnalogueClock analogue;
            SkinRect clockRect;
            ASSERT_TRUE(analogue.ReadScheme(parser, schemePrefix, clockRect));
            const Box clockBox = boxOf(clockRect, "clock");
            EXPECT_TRUE(insideView(clockBox, width, height));
            // The dial the hands turn on lies wholly inside the clock window.
            const PixelPoint centre = analogue.centre();
            const int radius = analogue.radius();
            EXPECT_GT(radius, 30);
            EXPECT_GE(centre.x - radius, 0);
            EXPECT_GE(centre.y - radius, 0);
            EXPECT_LE(centre.x + radius, clockBox.right - clockBox.left);
            EXPECT_LE(centre.y + radius, clockBox.bottom - clockBox.top);

            DigitalClock digital;
            SkinRect digitalRect;
            ASSERT_TRUE(digital.ReadScheme(parser, schemePrefix, digitalRect));
            const Box digitalBox = boxOf(digitalRect, "dig_clock");
            EXPECT_TRUE(insideView(digitalBox, width, height));
            // Room for the segments and for the AM/PM pair, whose second word
            // starts 12 pixels down.
            EXPECT_GE(digitalBox.bottom - digitalBox.top, 24);
            parser.Close();

            const MoonPhaseLayout& moon = scheme.moonPhase;
            ASSERT_TRUE(moon.read && moon.loadImage);
            const Box moonBox{moon.rect.left, moon.rect.top, moon.rect.left + moon.size.width,
                              moon.rect.top + moon.size.height, "moonphase"};
            EXPECT_TRUE(insideView(moonBox, width, height));
            const QSize stripSize = QImageReader(qPath(paths.graphicsFile(moon.image))).size();
            EXPECT_EQ(std::pair(stripSize.width(), stripSize.height()),
                      std::pair(8 * moon.size.width, moon.size.height))
                << moon.image;

            taken.push_back(clockBox);
            taken.push_back(digitalBox);
            taken.push_back(moonBox);
            for (std::size_t i = 0; i < taken.size(); ++i)
                for (std::size_t j = i + 1; j < taken.size(); ++j)
                    EXPECT_FALSE(overlaps(taken[i], taken[j]))
                        << taken[i].name << " overlaps " << taken[j].name;
        }
    }
}

TEST_F(ShippedSkins, ClocksAndMoonAreDrawnOnTheirPartOfTheBackground) {
    for (const auto& [width, height] : profiles) {
        for (const std::string& skin : enumerateSkins(paths, width, height, "").names) {
            SCOPED_TRACE(skin + " at " + std::to_string(width) + "x" + std::to_string(height));
            const fs::path file = schemeFile(paths, skin, width, height);
            const SkinScheme scheme = loadSkinScheme(file, SkinScheme{});
            QImage background(qPath(paths.graphicsFile(scheme.background)));
            ASSERT_FALSE(background.isNull());
            background.convertTo(QImage::Format_RGB32);

            CXMLParser parser;
            ASSERT_TRUE(found(parser.Create()));
            ASSERT_TRUE(found(parser.Load(file)));
            AnalogueClock analogue;
            SkinRect clockRect;
            ASSERT_TRUE(analogue.ReadScheme(parser, schemePrefix, clockRect));
            CDigitalClock digital;
            SkinRect digitalRect;
            ASSERT_TRUE(digital.engine().ReadScheme(parser, schemePrefix, digitalRect));
            parser.Close();

            // Hands at 10:08:40 over the clock window's part of the picture.
            const QRect clockArea(clockRect.left, clockRect.top, clockRect.right - clockRect.left,
                                  clockRect.bottom - clockRect.top);
            const QImage face = background.copy(clockArea);
            QImage drawn = face;
            QImageSurface surface(drawn);
            analogue.applyClientSize(drawn.width(), drawn.height());
            analogue.setTime(10, 8, 40);
            analogue.drawHands(surface);
            int visible = 0;
            int outsideDial = 0;
            const PixelPoint centre = analogue.centre();
            const int radius = analogue.radius();
            for (int y = 0; y < drawn.height(); ++y)
                for (int x = 0; x < drawn.width(); ++x) {
                    const int change = channelDistance(drawn.pixel(x, y), face.pixel(x, y));
                    if (change == 0)
                        continue;
                    visible += change >= 48;
                    const int dx = x - centre.x;
                    const int dy = y - centre.y;
                    outsideDial += dx * dx + dy * dy > radius * radius;
                }
            // Three hands of together more than a radius, clearly set off
            // from the face, and none reaching past the dial.
            EXPECT_GT(visible, radius);
            EXPECT_EQ(outsideDial, 0);

            // The digital clock fills its window with its own background and
            // draws 11:58:30 in lit and unlit segments.
            const QRect digitalArea(digitalRect.left, digitalRect.top,
                                    digitalRect.right - digitalRect.left,
                                    digitalRect.bottom - digitalRect.top);
            digital.resize(digitalArea.size());
            digital.setTime(11, 58, 30);
            QImage segments = background.copy(digitalArea);
            digital.renderTo(segments);
            const DigitalClockColours& colours = digital.engine().colours();
            const QRgb lit = toQRgb(colours.fillOn);
            const QRgb unlit = toQRgb(colours.fillOff);
            const QRgb back = toQRgb(colours.backFill);
            int litPixels = 0;
            int unlitPixels = 0;
            for (int y = 0; y < segments.height(); ++y)
                for (int x = 0; x < segments.width(); ++x) {
                    litPixels += segments.pixel(x, y) == lit;
                    unlitPixels += segments.pixel(x, y) == unlit;
                }
            const int area = digitalArea.width() * digitalArea.height();
            EXPECT_GT(litPixels, area / 10);
            EXPECT_GT(unlitPixels, area / 50);
            // The window's own background matches the picture around it, so
            // the control sits in its panel without a seam.
            for (const QPoint p : {digitalArea.topLeft(), digitalArea.bottomRight(),
                                   QPoint(digitalArea.left(), digitalArea.center().y())})
                EXPECT_LE(channelDistance(background.pixel(p), back), 16)
                    << "dig_clock background at " << p.x() << "," << p.y();

            // Each phase of the strip blends into the picture where it is
            // drawn, and the full moon (4) is much lighter than the new (0).
            const MoonPhaseLayout& moon = scheme.moonPhase;
            QImage strip(qPath(paths.graphicsFile(moon.image)));
            ASSERT_FALSE(strip.isNull());
            const int w = moon.size.width;
            const int h = moon.size.height;
            for (int phase = 0; phase < 8; ++phase)
                EXPECT_LE(channelDistance(strip.pixel(phase * w, 0),
                                          background.pixel(moon.rect.left, moon.rect.top)),
                          24)
                    << "phase " << phase;
            const auto middle = [&](int phase) {
                return qGray(strip.pixel(phase * w + w / 2, h / 2));
            };
            EXPECT_GT(middle(4), middle(0) + 100);
            // Waxing phases are lit on the right, waning ones on the left.
            EXPECT_GT(qGray(strip.pixel(2 * w + 3 * w / 4, h / 2)),
                      qGray(strip.pixel(2 * w + w / 4, h / 2)) + 100);
            EXPECT_GT(qGray(strip.pixel(6 * w + w / 4, h / 2)),
                      qGray(strip.pixel(6 * w + 3 * w / 4, h / 2)) + 100);
        }
    }
}

} // namespace
} // namespace zonara

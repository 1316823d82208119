// Every skin shipped under graphics/, read as the full clock reads it, at every
// screen profile: pictures of the right size, fields inside the view and clear
// of each other and of the clocks, and both clocks actually drawn.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <QImage>
#include <QImageReader>
#include <QString>
#include <gtest/gtest.h>

#include "clocks/AnalogueClock.h"
#include "clocks/CDigitalClock.h"
#include "clocks/CXMLParser.h"
#include "controls/QImageSurface.h"
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
    QRect rect() const { return {left, top, right - left, bottom - top}; }
};

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

TEST_F(ShippedSkins, LayoutFitsTheViewAndBothClocksDraw) {
    for (const auto& [width, height] : profiles) {
        const int dpi = deviceProfile(width, height)->dpi;
        for (const std::string& skin : enumerateSkins(paths, width, height, "").names) {
            SCOPED_TRACE(skin + " at " + std::to_string(width) + "x" + std::to_string(height));
            const fs::path file = schemeFile(paths, skin, width, height);
            const SkinScheme scheme = loadSkinScheme(file, SkinScheme{});
            ASSERT_TRUE(scheme.loadBackground);
            QImage background(qPath(paths.graphicsFile(scheme.background)));
            ASSERT_EQ(background.size(), QSize(width, height)) << scheme.background;
            background.convertTo(QImage::Format_RGB32);

            std::vector<Box> taken;
            for (std::size_t slot = 0; slot < textFieldCount; ++slot) {
                const TextField& field = scheme.fields[slot];
                if (!field.shown)
                    continue;
                const SkinRect& r = field.rect;
                taken.push_back(
                    {r.left, r.top, r.right, r.bottom, std::string(textFieldNames[slot])});
                EXPECT_TRUE(insideView(taken.back(), width, height));
                // The height the view asks its font for, truncated as it is.
                const int pixels = field.fontSize * dpi / 72;
                EXPECT_GE(pixels, 8) << taken.back().name << " is too small to read";
                EXPECT_GE(r.bottom - r.top, pixels) << taken.back().name << " cuts its text off";
            }
            EXPECT_GE(taken.size(), 12u);

            CXMLParser parser;
            ASSERT_TRUE(found(parser.Create()));
            ASSERT_TRUE(found(parser.Load(file)));
            AnalogueClock analogue;
            SkinRect c;
            ASSERT_TRUE(analogue.readScheme(parser, schemePrefix, c));
            CDigitalClock digital;
            SkinRect d;
            ASSERT_TRUE(digital.engine().readScheme(parser, schemePrefix, d));
            const MoonPhaseLayout& moon = scheme.moonPhase;
            ASSERT_TRUE(moon.read && moon.loadImage);
            const SkinRect& m = moon.rect;
            const Box clockBox{c.left, c.top, c.right, c.bottom, "clock"};
            const Box digitalBox{d.left, d.top, d.right, d.bottom, "dig_clock"};
            const Box moonBox{m.left, m.top, m.left + moon.size.width, m.top + moon.size.height,
                              "moonphase"};
            for (const Box& b : {clockBox, digitalBox, moonBox}) {
                EXPECT_TRUE(insideView(b, width, height));
                taken.push_back(b);
            }
            for (std::size_t i = 0; i < taken.size(); ++i)
                for (std::size_t j = i + 1; j < taken.size(); ++j)
                    EXPECT_FALSE(overlaps(taken[i], taken[j]))
                        << taken[i].name << " overlaps " << taken[j].name;
            EXPECT_EQ(QImageReader(qPath(paths.graphicsFile(moon.image))).size(),
                      QSize(8 * moon.size.width, moon.size.height))
                << moon.image;

            // Hands at 10:08:40 over the clock window's part of the picture: together
            // more than a radius of pixels clearly set off from the face, none past the dial.
            const QImage face = background.copy(clockBox.rect());
            QImage drawn = face;
            QImageSurface surface(drawn);
            analogue.applyClientSize(drawn.width(), drawn.height());
            analogue.setTime(10, 8, 40);
            analogue.drawHands(surface);
            const PixelPoint centre = analogue.centre();
            const int radius = analogue.radius();
            EXPECT_GT(radius, 30);
            EXPECT_GE(std::min(centre.x, centre.y) - radius, 0);
            EXPECT_LE(centre.x + radius, drawn.width());
            EXPECT_LE(centre.y + radius, drawn.height());
            int visible = 0;
            int outsideDial = 0;
            for (int y = 0; y < drawn.height(); ++y)
                for (int x = 0; x < drawn.width(); ++x) {
                    const int change = channelDistance(drawn.pixel(x, y), face.pixel(x, y));
                    const int dx = x - centre.x;
                    const int dy = y - centre.y;
                    visible += change >= 48;
                    outsideDial += change > 0 && dx * dx + dy * dy > radius * radius;
                }
            EXPECT_GT(visible, radius);
            EXPECT_EQ(outsideDial, 0);

            // The digital clock draws 11:58:30 in lit and unlit segments on its own
            // background, which matches the picture around it so there is no seam.
            digital.resize(digitalBox.rect().size());
            digital.setTime(11, 58, 30);
            QImage segments = background.copy(digitalBox.rect());
            digital.renderTo(segments);
            const DigitalClockColours& colours = digital.engine().colours();
            int lit = 0;
            int unlit = 0;
            for (int y = 0; y < segments.height(); ++y)
                for (int x = 0; x < segments.width(); ++x) {
                    lit += segments.pixel(x, y) == toQRgb(colours.fillOn);
                    unlit += segments.pixel(x, y) == toQRgb(colours.fillOff);
                }
            const int area = segments.width() * segments.height();
            EXPECT_GT(lit, area / 10);
            EXPECT_GT(unlit, area / 50);
            EXPECT_LE(channelDistance(background.pixel(digitalBox.left, digitalBox.top),
                                      toQRgb(colours.backFill)),
                      16);
        }
    }
}

} // namespace
} // namespace zonara

#include "clocks/CSkinSetup.h"

#include <algorithm>

#include <QAction>
#include <QImage>
#include <QListWidget>
#include <QPushButton>
#include <gtest/gtest.h>

#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

class CSkinSetupTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(paths.graphicsDir());
        for (const auto& [name, colour] :
             {std::pair{"blue.png", qRgb(0, 0, 255)}, std::pair{"red.png", qRgb(255, 0, 0)},
              std::pair{"green.png", qRgb(0, 255, 0)}}) {
            QImage picture(48, 64, QImage::Format_RGB32);
            picture.fill(colour);
            ASSERT_TRUE(picture.save(QString::fromStdString(paths.graphicsFile(name).string())));
        }
        scheme("default.xml_480x640.xml", "blue.png");
        scheme("night_480x640.xml", "red.png");
        scheme("night_240x320.xml", "green.png");
        // Landscape screens preview the portrait-named scheme.
        scheme("night_640x480.xml", "blue.png");
    }
    void scheme(const std::string& file, const std::string& picture) {
        writeFile(paths.graphicsFile(file),
                  "<scheme><mainclock><background img=\"" + picture + "\"/></mainclock></scheme>");
    }
    static std::vector<std::string> sorted(std::vector<std::string> names) {
        std::sort(names.begin(), names.end());
        return names;
    }

    TempDir root;
    Paths paths{root.path()};
};

TEST_F(CSkinSetupTest, ListsTheScreensSkinsWithTheCurrentSelectedAndPreviewed) {
    CSkinSetup dialog(paths, *deviceProfile(480, 640), "night");
    EXPECT_EQ(sorted(dialog.skinNames()), (std::vector<std::string>{"default.xml", "night"}));
    EXPECT_EQ(dialog.chosenSkin(), "night");
    ASSERT_FALSE(dialog.previewImage().isNull());
    EXPECT_EQ(dialog.previewImage().pixel(10, 10), qRgb(255, 0, 0));

    // Choosing another entry previews its background.
    const auto names = dialog.skinNames();
    const int other = names[0] == "night" ? 1 : 0;
    dialog.skinList()->setCurrentRow(other);
    EXPECT_EQ(dialog.chosenSkin(), "default.xml");
    EXPECT_EQ(dialog.previewImage().pixel(10, 10), qRgb(0, 0, 255));

    // An unknown current skin selects the first entry.
    CSkinSetup unknown(paths, *deviceProfile(480, 640), "Night");
    EXPECT_EQ(unknown.chosenSkin(), unknown.skinNames().front());
}

TEST_F(CSkinSetupTest, DoneReportsAChangedChoiceAndCancelNone) {
    struct Case {
        bool choose, cancel;
        QDialog::DialogCode result;
        bool changed;
    };
    for (const Case c :
         {Case{true, false, QDialog::Accepted, true}, Case{false, false, QDialog::Accepted, false},
          Case{true, true, QDialog::Rejected, false}}) {
        CSkinSetup dialog(paths, *deviceProfile(480, 640), "night");
        if (c.choose)
            dialog.skinList()->setCurrentRow(dialog.skinNames()[0] == "night" ? 1 : 0);
        c.cancel ? dialog.cancelAction()->trigger() : dialog.doneButton()->click();
        EXPECT_EQ(dialog.result(), c.result);
        EXPECT_EQ(dialog.skinChanged(), c.changed);
    }
}

TEST_F(CSkinSetupTest, OtherScreensAndEmptyLists) {
    // 240x320 has one skin; the landscape 640x480 previews night_480x640.xml.
    CSkinSetup small(paths, *deviceProfile(240, 320), "default.xml");
    EXPECT_EQ(small.skinNames(), (std::vector<std::string>{"night"}));
    EXPECT_EQ(small.previewImage().pixel(0, 0), qRgb(0, 255, 0));

    CSkinSetup landscape(paths, *deviceProfile(640, 480), "night");
    EXPECT_EQ(landscape.skinNames(), (std::vector<std::string>{"night"}));
    EXPECT_EQ(landscape.previewImage().pixel(0, 0), qRgb(255, 0, 0));

    CSkinSetup none(paths, *deviceProfile(176, 220), "night");
    EXPECT_TRUE(none.skinNames().empty());
    EXPECT_TRUE(none.previewImage().isNull());
    none.doneButton()->click();
    EXPECT_EQ(none.chosenSkin(), "night");
    EXPECT_FALSE(none.skinChanged());
}

} // namespace
} // namespace zonara

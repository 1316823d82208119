#include "clocks/SkinFiles.h"

#include <gtest/gtest.h>

#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

TEST(SkinFilesTest, SchemeFileNamesFollowTheScreen) {
    const Paths paths("/opt/zonara");
    EXPECT_EQ(schemeFile(paths, "default.xml", 240, 320),
              std::filesystem::path("/opt/zonara/Graphics/default.xml_240x320.xml"));
    EXPECT_EQ(schemeFile(paths, "night", 320, 240),
              std::filesystem::path("/opt/zonara/Graphics/night_320x240.xml"));

    // The preview reads the portrait-named file on landscape screens only.
    EXPECT_EQ(previewSchemeFile(paths, "night", 320, 240).filename(), "night_240x320.xml");
    EXPECT_EQ(previewSchemeFile(paths, "night", 480, 480).filename(), "night_480x480.xml");
}

TEST(SkinFilesTest, TheLastExactMatchIsSelected) {
    const std::vector<std::string> names = {"blue", "default.xml", "blue", "Red"};
    EXPECT_EQ(selectedSkin(names, "blue"), 2u);
    EXPECT_EQ(selectedSkin(names, "red"), 0u);
    EXPECT_EQ(selectedSkin(names, ""), 0u);
    EXPECT_EQ(selectedSkin({}, "blue"), 0u);
}

TEST(SkinFilesTest, EnumerationListsTheScreensSchemesInFileNameOrder) {
    TempDir dir;
    const Paths paths(dir.path());
    for (const char* name : {"zeta_240x320.xml", "my_skin_240x320.xml", "default.xml_240x320.xml",
                             "default_240x320.xml", "_240x320.xml", "other_480x640.xml",
                             "upper_240x320.XML", "my_skin_240x320.xml.bak", "back.jpg"})
        writeFile(paths.graphicsFile(name), "<scheme/>");
    std::filesystem::create_directories(paths.graphicsFile("folder_240x320.xml"));

    const SkinList list = enumerateSkins(paths, 240, 320, "my_skin");
    EXPECT_EQ(list.names,
              (std::vector<std::string>{"", "default.xml", "default", "my_skin", "zeta"}));
    EXPECT_EQ(list.selected, 3u);

    EXPECT_EQ(enumerateSkins(paths, 240, 320, "MY_SKIN").selected, 0u);
    EXPECT_EQ(enumerateSkins(paths, 480, 640, "other").names, std::vector<std::string>{"other"});
    // A landscape screen lists its own files, not the portrait ones.
    EXPECT_TRUE(enumerateSkins(paths, 320, 240, "zeta").names.empty());

    EXPECT_TRUE(enumerateSkins(Paths(dir.path() / "missing"), 240, 320, "zeta").names.empty());
}

} // namespace
} // namespace zonara

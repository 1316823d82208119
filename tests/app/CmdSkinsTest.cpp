#include <gtest/gtest.h>

#include "core/Paths.h"
#include "core/Settings.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

TEST(CmdSkins, ListsTheScreensSkinsWithTheCurrentOneMarkedAndSaysWhatIsMissing) {
    test::TempDir dir;
    const Paths paths(dir.path());
    for (const char* name : {"default.xml_480x640.xml", "night_480x640.xml", "night_240x320.xml",
                             "alpine_240x320.xml"})
        test::writeFile(paths.graphicsFile(name), "<scheme/>");
    std::filesystem::create_directories(paths.dataDir());
    const std::string root = dir.path().string();
    const auto useSkin = [&](std::u16string skin) {
        Settings settings;
        settings.skinFile = std::move(skin);
        ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName)));
    };
    struct Case {
        std::u16string skin; // empty: no settings file
        const char* screen;
        const char* out;
        const char* err; // a part of it
    };
    const Case cases[] = {
        {u"", "480x640", "default.xml\t1\nnight\t0\n", ""},
        {u"night", "240x320", "alpine\t0\nnight\t1\n", ""},
        {u"alpine", "480x640", "default.xml\t0\nnight\t0\n", "'alpine' has no scheme for 480x640"},
        {u"alpine", "176x220", "", "no skins for 176x220"},
    };
    for (const Case& c : cases) {
        if (!c.skin.empty())
            useSkin(c.skin);
        const auto r = test::runZonara({"--root", root, "--screen", c.screen, "skins", "--tsv"});
        EXPECT_EQ(r.exitCode, 0) << c.screen;
        EXPECT_EQ(r.out, c.out);
        EXPECT_NE(r.err.find(c.err), std::string::npos) << r.err;
        if (*c.err == '\0') {
            EXPECT_EQ(r.err, "");
        }
    }

    useSkin(u"night");
    auto r = test::runZonara({"--root", root, "skins", "--screen=240x320"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_LT(r.out.find("night"), r.out.find('*')); // the mark is on night's line, the last
    r = test::runZonara({"--root", root, "skins", "extra"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("unexpected 'extra'"), std::string::npos);
    EXPECT_EQ(test::runZonara({"--root", root, "skins", "--bogus"}).exitCode, 1);
}

} // namespace
} // namespace zonara

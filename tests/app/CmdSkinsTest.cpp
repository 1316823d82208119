#include <gtest/gtest.h>

#include "app/CommandLine.h"
#include "core/Paths.h"
#include "core/Settings.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;
using test::writeFile;

test::CommandResult run(const std::vector<std::string>& argv) {
    return test::runZonara(argv);
}

class CmdSkinsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"default.xml_480x640.xml", "night_480x640.xml",
                                 "night_240x320.xml", "alpine_240x320.xml"})
            writeFile(paths.graphicsFile(name), "<scheme/>");
        std::filesystem::create_directories(paths.dataDir());
    }
    void useSkin(std::u16string skin) {
        Settings settings;
        settings.skinFile = std::move(skin);
        ASSERT_TRUE(settings.Save(paths.dataFile(settingsFileName)));
    }
    std::string root() const { return dir.path().string(); }

    TempDir dir;
    Paths paths{dir.path()};
};

TEST_F(CmdSkinsTest, ListsTheSkinsOfTheScreenWithTheCurrentOneMarked) {
    // No settings file: the default skin is current.
    test::CommandResult r = run({"--root", root(), "skins", "--tsv"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "default.xml\t1\nnight\t0\n");
    EXPECT_EQ(r.err, "");

    useSkin(u"night");
    r = run({"--root", root(), "--screen", "240x320", "skins", "--tsv"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "alpine\t0\nnight\t1\n");

    r = run({"--root", root(), "skins", "--screen=240x320"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("night"), std::string::npos);
    EXPECT_NE(r.out.find('*'), std::string::npos);
    EXPECT_LT(r.out.find("alpine"), r.out.find('*'));
}

TEST_F(CmdSkinsTest, SaysWhenTheCurrentSkinOrAnySkinIsMissing) {
    useSkin(u"alpine");
    test::CommandResult r = run({"--root", root(), "skins", "--tsv"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "default.xml\t0\nnight\t0\n");
    EXPECT_NE(r.err.find("'alpine' has no scheme for 480x640"), std::string::npos) << r.err;

    r = run({"--root", root(), "--screen", "176x220", "skins", "--tsv"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("no skins for 176x220"), std::string::npos) << r.err;

    r = run({"--root", root(), "skins", "extra"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("unexpected 'extra'"), std::string::npos);
    EXPECT_EQ(run({"--root", root(), "skins", "--bogus"}).exitCode, 1);
    EXPECT_EQ(run({"--root", root(), "skins", "--help"}).exitCode, 0);
}

} // namespace
} // namespace zonara

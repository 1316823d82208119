#include <gtest/gtest.h>

#include <cstdlib>

#include "core/RootFolder.h"
#include "support/TempDir.h"

namespace zonara {

namespace {

// Sets an environment variable for one scope.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, const std::string& value) : name(name) {
        if (const char* old = std::getenv(name)) {
            previous = old;
        }
        ::setenv(name, value.c_str(), 1);
    }
    ~ScopedEnv() {
        if (previous) {
            ::setenv(name, previous->c_str(), 1);
        } else {
            ::unsetenv(name);
        }
    }

  private:
    const char* name;
    std::optional<std::string> previous;
};

} // namespace

TEST(RootFolder, ChoosesOptionThenEnvironmentThenProgramFolderThenUserFolder) {
    test::TempDir dir;
    const auto exe = dir.path() / "prefix" / "bin";
    const auto shared = dir.path() / "prefix" / "share" / "zonara";
    test::writeFile(shared / "Data" / "city40.dat", "shipped");
    test::writeFile(dir.path() / "explicit" / "Data" / "x", "");
    std::filesystem::create_directories(exe);
    ScopedEnv xdg("XDG_DATA_HOME", (dir.path() / "xdg").string());
    ScopedEnv env("ZONARA_ROOT", "");

    EXPECT_EQ(resolveRoot(dir.path() / "explicit", exe).root, dir.path() / "explicit");
    EXPECT_FALSE(resolveRoot(dir.path() / "missing", exe).error.empty());

    // No option, no environment, no Data/ beside the program: the user's
    // folder, seeded from the installed copy.
    const RootChoice user = resolveRoot(std::nullopt, exe);
    ASSERT_TRUE(user.error.empty()) << user.error;
    EXPECT_EQ(user.root, dir.path() / "xdg" / "zonara");
    EXPECT_EQ(test::readFile(user.root / "Data" / "city40.dat"), "shipped");
    // Seeding happens once: the user's own files stay.
    test::writeFile(user.root / "Data" / "city40.dat", "mine");
    EXPECT_EQ(test::readFile(resolveRoot(std::nullopt, exe).root / "Data" / "city40.dat"), "mine");

    std::filesystem::create_directories(exe / "Data");
    EXPECT_EQ(resolveRoot(std::nullopt, exe).root, exe);
    {
        ScopedEnv set("ZONARA_ROOT", (dir.path() / "explicit").string());
        EXPECT_EQ(resolveRoot(std::nullopt, exe).root, dir.path() / "explicit");
        EXPECT_EQ(resolveRoot(exe, exe).root, exe); // the option wins
    }
}

} // namespace zonara

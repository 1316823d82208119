#include <gtest/gtest.h>

#include "core/Settings.h"
#include "core/WorldFiles.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

using test::runZonara;
using test::sampleCity;

namespace {

// A small world: London with the UK rule, Sydney with a southern rule, two
// Londons to make a name ambiguous, and names that differ only in case.
Paths smallWorld(const std::filesystem::path& root) {
    City sydney = sampleCity("Sydney", 255, 2);
    sydney.countryDialCode = "61";
    sydney.areaDialCode = "2";
    const Paths paths = test::writeWorld(
        root, {{"Australia", {sampleCity("Perth", 225, 0), sydney}},
               {"Canada", {sampleCity("London", 35, 0), sampleCity("Londonderry", 50, 0)}},
               {"United Kingdom", {sampleCity("London"), sampleCity("Londonderry")}}});
    test::writeRules(paths);
    return paths;
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1) {
        result.push_back(text.substr(start, end - start));
    }
    return result;
}

} // namespace

TEST(CommandLine, NowPrintsTheFourSlotsOnAnEmptyRoot) {
    test::TempDir dir;
    const std::string root = dir.path().string();
    const auto tsv = runZonara({"--root", root, "--at", "2026-07-01T12:00:00Z", "--tsv", "now"});
    ASSERT_EQ(tsv.exitCode, 0) << tsv.err;
    const auto rows = lines(tsv.out);
    ASSERT_EQ(rows.size(), 4u);
    // No rule file: London's rule 1 does not exist, so standard time.
    EXPECT_EQ(rows[3], "3\tLondon\tUnited Kingdom\t2026-07-01\t12:00:00\t3\t00:00\t0\tGreenwich "
                       "Mean Time");

    const auto table = runZonara({"--root", root, "--at", "2026-07-01T15:04:00Z", "now"});
    ASSERT_EQ(table.exitCode, 0);
    EXPECT_NE(table.out.find("Wed 7/1/2026"), std::string::npos) << table.out;
    EXPECT_NE(table.out.find("03:04 PM"), std::string::npos) << table.out;
    EXPECT_NE(table.out.find("0*"), std::string::npos); // the selected slot
}

TEST(CommandLine, TimeFindsCitiesAndSuggestsCloseNames) {
    test::TempDir dir;
    smallWorld(dir.path());
    const std::string root = dir.path().string();
    const std::vector<std::string> base = {"--root", root, "--at", "2026-01-01T00:00:00Z", "--tsv"};
    auto run = [&](std::vector<std::string> words) {
        words.insert(words.begin(), base.begin(), base.end());
        return runZonara(words);
    };

    auto r = run({"time", "Sydney"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "-\tSydney\tAustralia\t2026-01-01\t11:00:00\t4\t+10:00\t1\tSydney\n");
    EXPECT_NE(r.err.find("Preparing data"), std::string::npos); // the first run rebuilds
    EXPECT_EQ(run({"time", "Sydney"}).err, "");                 // the second does not

    // The first city of that name in file order, unless a country is named.
    EXPECT_EQ(run({"time", "London"}).out.substr(0, 17), "-\tLondon\tCanada\t2");
    EXPECT_NE(run({"time", "London", "--country", "United Kingdom"}).out.find("United Kingdom"),
              std::string::npos);

    r = run({"time", "london"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "zonara: no city named 'london'; did you mean: London (Canada), London "
                     "(United Kingdom), Londonderry (Canada), Londonderry (United Kingdom)\n");
    r = run({"time", "Paris"});
    EXPECT_EQ(r.err, "zonara: no city named 'Paris'\n");
    r = run({"time", "Sydney", "--country", "australia"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, "zonara: no country named 'australia'; did you mean: Australia\n");

    r = run({"time", "--all"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_EQ(lines(r.out).size(), 6u);
    for (const auto& words : std::vector<std::vector<std::string>>{{"time"},
                                                                   {"time", "--all", "Sydney"},
                                                                   {"time", "A", "B"},
                                                                   {"time", "--bogus", "X"},
                                                                   {"time", "X", "--country"}}) {
        EXPECT_EQ(run(words).exitCode, 1) << words.back();
    }
}

TEST(CommandLine, CitiesListsCountriesOrOneCountrysCities) {
    test::TempDir dir;
    smallWorld(dir.path());
    const std::string root = dir.path().string();
    auto r = runZonara({"--root", root, "--tsv", "cities"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "0\tAustralia\n1\tCanada\n2\tUnited Kingdom\n");
    r = runZonara({"--root", root, "cities", "--country", "Australia", "--tsv"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_EQ(lines(r.out)[1],
              "Sydney\t-0.06\t51.51\tLHR\t61\t2\t255\t+10:00\t2\tEGLC\tSydney%2C+GB");
    EXPECT_EQ(runZonara({"--root", root, "cities", "Australia"}).exitCode, 1);
}

TEST(CommandLine, SlotAssignsACityAndSavesTheSettings) {
    test::TempDir dir;
    const Paths paths = smallWorld(dir.path());
    const std::string root = dir.path().string();
    auto r = runZonara({"--root", root, "slot", "2", "Sydney"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "Slot 2: Sydney, Australia\n");
    Settings settings;
    ASSERT_TRUE(settings.Load(paths.dataFile("settings.dat")));
    EXPECT_EQ(settings.slots[2].cityName, u"Sydney");
    EXPECT_EQ(settings.slots[2].dialCode, u"+61 2");
    EXPECT_EQ(settings.slots[1].cityName, u"London");

    r = runZonara({"--root", root, "--at", "2026-01-01T00:00:00Z", "--tsv", "now"});
    EXPECT_EQ(lines(r.out)[2], "2\tSydney\tAustralia\t2026-01-01\t11:00:00\t4\t+10:00\t1\tSydney");

    const std::string before = test::readFile(paths.dataFile("settings.dat"));
    for (const auto& words : std::vector<std::vector<std::string>>{{"slot", "4", "Sydney"},
                                                                   {"slot", "x", "Sydney"},
                                                                   {"slot", "1"},
                                                                   {"slot", "1", "Nowhere"}}) {
        std::vector<std::string> all = {"--root", root};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(runZonara(all).exitCode, 1) << words[1];
    }
    EXPECT_EQ(test::readFile(paths.dataFile("settings.dat")), before);
}

TEST(CommandLine, SettingsChangesCheckedValuesOrNothing) {
    test::TempDir dir;
    const Paths paths(dir.path());
    const std::string root = dir.path().string();
    auto r = runZonara({"--root", root, "--tsv", "settings"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_NE(r.out.find("slot3.cityName\tLondon\n"), std::string::npos);
    EXPECT_NE(r.out.find("skinFile\tdefault.xml\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(paths.dataFile("settings.dat"))); // showing writes nothing

    r = runZonara({"--root", root, "settings", "--set", "use24Hour=1", "--set=currentView=2",
                   "--set", "skinFile=night.xml"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    Settings s;
    ASSERT_TRUE(s.Load(paths.dataFile("settings.dat")));
    EXPECT_EQ(s.use24Hour, 1);
    EXPECT_EQ(s.currentView, 2);
    EXPECT_EQ(s.skinFile, u"night.xml");

    const std::string before = test::readFile(paths.dataFile("settings.dat"));
    for (const char* bad : {"use24Hour=2", "currentView=-1", "selectedSlot=4", "selectedSlot=1x",
                            "skinFile=", "useCelsius=", "colour=red", "use24Hour"}) {
        r = runZonara({"--root", root, "settings", "--set", "selectedSlot=1", "--set", bad});
        EXPECT_EQ(r.exitCode, 1) << bad;
        EXPECT_NE(r.err.find("nothing changed"), std::string::npos) << bad;
    }
    EXPECT_EQ(test::readFile(paths.dataFile("settings.dat")), before);

    // With the 24-hour setting, the table shows 24-hour times.
    r = runZonara({"--root", root, "--at", "2026-01-01T15:04:00Z", "now"});
    EXPECT_NE(r.out.find("15:04"), std::string::npos) << r.out;
    EXPECT_EQ(r.out.find("PM"), std::string::npos);
}

TEST(CommandLine, GlobalOptionsHelpAndErrors) {
    test::TempDir dir;
    const std::string root = dir.path().string();
    EXPECT_NE(runZonara({"--help"}).out.find("Commands:"), std::string::npos);
    const auto help = runZonara({"time", "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.out.rfind("Usage: zonara time CITY", 0), 0u);

    struct Row {
        std::vector<std::string> words;
        const char* message;
    };
    const Row table[] = {
        {{"--root", root, "bogus"}, "unknown command 'bogus'"},
        {{"--root", root, "--at", "yesterday", "now"}, "--at wants a UTC time"},
        {{"--root", root, "--screen", "big", "now"}, "--screen wants a size"},
        {{"--root", (dir.path() / "missing").string(), "now"}, "is not a folder"},
        {{"--root"}, "--root needs a value"},
        {{"--root", root, "now", "extra"}, "unexpected 'extra'"},
    };
    for (const Row& row : table) {
        const auto r = runZonara(row.words);
        EXPECT_EQ(r.exitCode, 1) << row.message;
        EXPECT_NE(r.err.find(row.message), std::string::npos) << r.err;
    }
}

} // namespace zonara

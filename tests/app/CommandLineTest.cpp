#include <gtest/gtest.h>

#include "app/cli/Args.h"
#include "app/cli/CommandTable.h"
#include "core/Settings.h"
#include "core/WorldFiles.h"
#include "support/CommandRunner.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

using test::runZonara;
using test::sampleCity;

namespace {

// A small world: London with the UK rule, Sydney with a southern rule, two
// Londons to make a name ambiguous.
Paths smallWorld(const std::filesystem::path& root) {
    City sydney = sampleCity("Sydney", 255, 2);
    sydney.countryDialCode = "61";
    sydney.areaDialCode = "2";
    const Paths paths = test::writeWorld(
        root, {{"Australia", {sampleCity("Perth", 225, 0), sydney}},
               {"Canada", {sampleCity("London", 35, 0), sampleCity("Londonderry", 50, 0)}},
               {"United Kingdom", {sampleCity("London"), sampleCity("Londonderry")}},
               {"Switzerland", {sampleCity("Zürich", 110, 1)}}});
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

// Runs "zonara --root ROOT PREFIX... WORDS...".
struct Runner {
    std::vector<std::string> prefix;
    test::CommandResult operator()(std::vector<std::string> words) const {
        words.insert(words.begin(), prefix.begin(), prefix.end());
        return runZonara(words);
    }
};

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

TEST(CommandLine, TimeFindsCitiesAsPeopleTypeThem) {
    test::TempDir dir;
    smallWorld(dir.path());
    const Runner run{{"--root", dir.path().string(), "--at", "2026-01-01T00:00:00Z", "--tsv"}};

    auto r = run({"time", "Sydney"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "-\tSydney\tAustralia\t2026-01-01\t11:00:00\t4\t+10:00\t1\tSydney\n");
    EXPECT_NE(r.err.find("Preparing data"), std::string::npos); // the first run rebuilds
    EXPECT_EQ(run({"time", "Sydney"}).err, "");                 // the second does not

    struct Case {
        std::vector<std::string> words;
        const char* out; // the start of the output; empty for a failure
        const char* err; // all of stderr
    };
    const Case cases[] = {
        {{"time", "zurich"}, "-\tZürich\tSwitzerland\t2026-01-01\t01:00:00", ""},
        {{"time", "SYD"}, "-\tSydney\tAustralia", ""},
        {{"time", "london", "--country", "united kingdom"}, "-\tLondon\tUnited Kingdom", ""},
        {{"time", "London", "--country=CAN"}, "-\tLondon\tCanada", ""},
        {{"time", "londonderry", "--country", "Canada"}, "-\tLondonderry\tCanada", ""},
        {{"time", "london"},
         "",
         "zonara time: 'london' fits 2 cities; add --country or type more of the name:\n"
         "  London (Canada)\n  London (United Kingdom)\n"},
        {{"time", "lond", "--country", "united kingdom"},
         "",
         "zonara time: 'lond' fits 2 cities; type more of the name:\n"
         "  London (United Kingdom)\n  Londonderry (United Kingdom)\n"},
        {{"time", "Zurick"},
         "",
         "zonara time: no city named 'Zurick'; did you mean: Zürich (Switzerland)?\n"},
        {{"time", "Paris"},
         "",
         "zonara time: no city named 'Paris'; 'zonara find TEXT' looks for a part of a name\n"},
        {{"time", "Sydney", "--country", "canada"},
         "",
         "zonara time: no city named 'Sydney' in Canada; did you mean: Sydney (Australia)?\n"},
        {{"time", "Sydney", "--country", "austrlia"},
         "",
         "zonara time: no country named 'austrlia'; did you mean: Australia?\n"},
        {{"time", "Sydney", "--country", "Atlantis"},
         "",
         "zonara time: no country named 'Atlantis'; 'zonara cities' lists the countries\n"},
        {{"time", "  "}, "", "zonara time: the city's name is empty\n"},
        {{"time", "?!"}, "", "zonara time: '?!' is not a city's name: it has no letters\n"},
        {{"time", "Sydney", "--country", ""},
         "",
         "zonara time: --country: the country's name is empty\n"},
        {{"time"}, "", "zonara time: which city? 'zonara time CITY' or 'zonara time --all'\n"},
        {{"time", "--all", "Sydney"}, "", "zonara time: --all takes no city or country\n"},
        {{"time", "X", "--country"}, "", "zonara time: --country needs a value\n"},
        {{"time", "X", "--country", "--all"}, "", "zonara time: --country needs a value\n"},
        {{"time", "X", "--contry", "Y"},
         "",
         "zonara time: unknown option '--contry'; did you mean --country?\n"},
        {{"time", "X", "--bogus"},
         "",
         "zonara time: unknown option '--bogus'; 'zonara time --help' lists the options\n"},
    };
    for (const Case& c : cases) {
        const auto result = run(c.words);
        SCOPED_TRACE(c.words.back());
        EXPECT_EQ(result.exitCode, *c.out ? 0 : 1);
        EXPECT_EQ(result.out.substr(0, std::string(c.out).size()), c.out);
        EXPECT_EQ(result.err, c.err);
    }

    r = run({"time", "--all"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_EQ(lines(r.out).size(), 7u);
}

TEST(CommandLine, CitiesListsCountriesOrOneCountrysCities) {
    test::TempDir dir;
    smallWorld(dir.path());
    const std::string root = dir.path().string();
    auto r = runZonara({"--root", root, "--tsv", "cities"});
    ASSERT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "0\tAustralia\n1\tCanada\n2\tUnited Kingdom\n3\tSwitzerland\n");
    r = runZonara({"--root", root, "cities", "--country", "AUSTRAL", "--tsv"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(lines(r.out)[1],
              "Sydney\t-0.06\t51.51\tLHR\t61\t2\t255\t+10:00\t2\tEGLC\tSydney%2C+GB");
    r = runZonara({"--root", root, "cities", "Australia"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, "zonara cities: unexpected 'Australia'; use --country NAME\n");
}

TEST(CommandLine, SlotAssignsACityOrChangesNothing) {
    test::TempDir dir;
    const Paths paths = smallWorld(dir.path());
    const std::string root = dir.path().string();
    const std::filesystem::path file = paths.dataFile("settings.dat");
    // Prepared once here, the world files add no note to the refusals' stderr.
    ASSERT_EQ(runZonara({"--root", root, "cities"}).exitCode, 0);

    // Refused input writes no settings, not even the defaults.
    struct Case {
        std::vector<std::string> words;
        const char* message;
    };
    const Case refused[] = {
        {{"slot", "4", "Sydney"}, "a clock slot is 0, 1, 2 or 3, not '4'"},
        {{"slot", "x", "Sydney"}, "not 'x'"},
        {{"slot", "1"}, "give a slot number and a city"},
        {{"slot", "1", "Nowhere"}, "no city named 'Nowhere'"},
        {{"slot", "1", "London"}, "fits 2 cities"},
        {{"slot", "1", "-"}, "it has no letters"},
        {{"slot", "1", ""}, "the city's name is empty"},
        {{"slot", "1", "London", "--country", "Narnia"}, "no country named 'Narnia'"},
        {{"slot", "1", "Sydney", "--country"}, "--country needs a value"},
        {{"slot", "1", "Sydney", "--now"}, "unknown option '--now'"},
    };
    for (const Case& c : refused) {
        std::vector<std::string> words = {"--root", root};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const auto r = runZonara(words);
        EXPECT_EQ(r.exitCode, 1) << c.message;
        EXPECT_EQ(r.err.rfind("zonara slot: ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
    }
    EXPECT_FALSE(std::filesystem::exists(file));

    auto r = runZonara({"--root", root, "slot", "2", "sydney"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "Slot 2: Sydney, Australia\n");
    r = runZonara({"--root", root, "slot", "3", "london", "--country", "united kingdom"});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    Settings settings;
    ASSERT_TRUE(settings.Load(file));
    EXPECT_EQ(settings.slots[2].cityName, u"Sydney");
    EXPECT_EQ(settings.slots[2].dialCode, u"+61 2");
    EXPECT_EQ(settings.slots[3].countryName, u"United Kingdom");
    EXPECT_EQ(settings.slots[1].cityName, u"London");

    r = runZonara({"--root", root, "--at", "2026-01-01T00:00:00Z", "--tsv", "now"});
    EXPECT_EQ(lines(r.out)[2], "2\tSydney\tAustralia\t2026-01-01\t11:00:00\t4\t+10:00\t1\tSydney");

    // Once the file exists, refusals leave it as it is.
    const std::string before = test::readFile(file);
    for (const Case& c : refused) {
        std::vector<std::string> words = {"--root", root};
        words.insert(words.end(), c.words.begin(), c.words.end());
        EXPECT_EQ(runZonara(words).exitCode, 1) << c.message;
    }
    EXPECT_EQ(test::readFile(file), before);
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
    EXPECT_EQ(runZonara({"--root", root, "settings", "--set"}).exitCode, 1);
    EXPECT_EQ(test::readFile(paths.dataFile("settings.dat")), before);

    // With the 24-hour setting, the table shows 24-hour times.
    r = runZonara({"--root", root, "--at", "2026-01-01T15:04:00Z", "now"});
    EXPECT_NE(r.out.find("15:04"), std::string::npos) << r.out;
    EXPECT_EQ(r.out.find("PM"), std::string::npos);
}

TEST(CommandLine, EveryCommandHasItsHelpBothWays) {
    const auto list = runZonara({"--help"});
    EXPECT_EQ(list.exitCode, 0);
    EXPECT_EQ(runZonara({"help"}).out, list.out);
    EXPECT_EQ(runZonara({}).out, list.out);
    for (const Command* command : commandTable()) {
        const std::string name(command->name);
        SCOPED_TRACE(name);
        EXPECT_FALSE(command->summary.empty());
        EXPECT_FALSE(command->help.empty());
        EXPECT_NE(list.out.find("\n  " + name + " "), std::string::npos);
        const auto asked = runZonara({"help", name});
        EXPECT_EQ(asked.exitCode, 0);
        EXPECT_EQ(asked.out.rfind("Usage: zonara " + name, 0), 0u) << asked.out;
        EXPECT_EQ(runZonara({name, "--help"}).out, asked.out);
        EXPECT_EQ(runZonara({name, "-h", "--bogus"}).out, asked.out);
        EXPECT_EQ(commandNamed(name), command);
    }
}

TEST(CommandLine, GlobalOptionsVersionAndErrors) {
    test::TempDir dir;
    const std::string root = dir.path().string();
    const auto version = runZonara({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.out.rfind("zonara ", 0), 0u);
    EXPECT_EQ(version.out.find_first_of("0123456789"), 7u) << version.out;

    struct Row {
        std::vector<std::string> words;
        const char* message; // all of stderr
    };
    const Row table[] = {
        {{"--root", root, "bogus"},
         "zonara: unknown command 'bogus'; 'zonara --help' lists the commands\n"},
        {{"--root", root, "tiem"}, "zonara: unknown command 'tiem'; did you mean 'time'?\n"},
        {{"--root", root, "--at", "yesterday", "now"},
         "zonara: --at wants a UTC time as YYYY-MM-DDTHH:MM:SSZ, not 'yesterday'\n"},
        {{"--root", root, "--screen", "big", "now"},
         "zonara: --screen wants a size as WIDTHxHEIGHT, such as 240x320, not 'big'\n"},
        {{"--root"}, "zonara: --root needs a value\n"},
        {{"--screen", "--tsv", "now"}, "zonara: --screen needs a value\n"},
        {{"--root", root, "now", "extra"}, "zonara now: unexpected 'extra'\n"},
        {{"--root", root, "help", "nosuch"},
         "zonara help: no command named 'nosuch'; 'zonara --help' lists them\n"},
        {{"--root", root, "moon", "--date", "2006-13-01"},
         "zonara moon: --date wants a date as YYYY-MM-DD, not '2006-13-01'\n"},
    };
    for (const Row& row : table) {
        const auto r = runZonara(row.words);
        EXPECT_EQ(r.exitCode, 1) << row.message;
        EXPECT_EQ(r.err, row.message);
    }
    const auto missing = runZonara({"--root", (dir.path() / "missing").string(), "now"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.err.rfind("zonara now: ", 0), 0u) << missing.err;
    EXPECT_NE(missing.err.find("is not a folder"), std::string::npos) << missing.err;
    // What needs no root runs without one.
    EXPECT_EQ(runZonara({"--root", (dir.path() / "missing").string(), "help", "now"}).exitCode, 0);
}

TEST(CommandLine, ArgsTakeOptionsAndLeaveTheWords) {
    struct Case {
        std::vector<std::string> words;
        const char* taken;  // the values of --country and --date, and the --all flag
        const char* result; // the positional words, or the error
    };
    const Case cases[] = {
        {{"new", "york"}, "- - 0", "new|york"},
        {{"--country", "Chad", "x"}, "Chad - 0", "x"},
        {{"--country=Côte d'Ivoire", "--all"}, "Côte d'Ivoire - 1", ""},
        {{"x", "--date", "2026-01-01", "y"}, "- 2026-01-01 0", "x|y"},
        {{"-5", "--", "--all", "-x"}, "- - 0", "-5|--all|-x"}, // a number; nothing after --
        {{"--country", "A", "--country", "B"}, "B - 0", "error: --country is given more than once"},
        {{"--country"}, "- - 0", "error: --country needs a value"},
        {{"--date", "--all"}, "- - 1", "error: --date needs a value"},
        {{"--dat", "x"}, "- - 0", "error: unknown option '--dat'; did you mean --date?"},
        {{"-q"}, "- - 0", "error: unknown option '-q'; 'zonara t --help' lists the options"},
    };
    for (const Case& c : cases) {
        Args args(c.words, "t");
        const auto country = args.option("--country");
        const auto date = args.option("--date");
        const bool all = args.flag("--all");
        const std::string taken =
            country.value_or("-") + " " + date.value_or("-") + " " + (all ? "1" : "0");
        const auto words = args.words();
        std::string result;
        if (!words)
            result = "error: " + words.error().message;
        for (std::size_t i = 0; words && i < words->size(); ++i)
            result += (i == 0 ? "" : "|") + (*words)[i];
        EXPECT_EQ(taken, c.taken) << c.result;
        EXPECT_EQ(result, c.result) << c.taken;
    }
}

// The shipped world, as a new user meets it: names typed in lower case,
// without accents or quotes.
TEST(CommandLine, ShippedWorldAnswersNamesAsTyped) {
    test::TempDir dir;
    test::copyShippedWorld(dir.path());
    const Runner run{{"--root", dir.path().string(), "--at", "2026-07-01T12:00:00Z", "--tsv"}};
    struct Case {
        std::vector<std::string> words;
        const char* shown;
    };
    const Case cases[] = {
        {{"time", "zurich"}, "Zürich\tSwitzerland"},
        {{"time", "Sao", "Paulo"}, "São Paulo\tBrazil"},
        {{"sun", "sao paulo"}, "São Paulo\tBrazil"},
        {{"time", "ndjamena"}, "Djamena\tChad"}, // whichever apostrophe the data use
        {{"time", "port au prince"}, "Port-au-Prince\tHaiti"},
        {{"slot", "2", "new york"}, "Slot 2: New York"},
    };
    for (const Case& c : cases) {
        const auto r = run(c.words);
        EXPECT_EQ(r.exitCode, 0) << r.err;
        EXPECT_NE(r.out.find(c.shown), std::string::npos) << r.out;
    }
}

} // namespace zonara

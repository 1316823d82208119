#include <gtest/gtest.h>

#include <filesystem>

#include "core/FileTime.h"
#include "core/WorldFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

using test::readFile;
using test::sampleCity;
using test::writeFile;

namespace {

std::vector<std::string> cityNames(const Country& country) {
    std::vector<std::string> names;
    for (const City& city : country.cities) {
        names.push_back(city.name);
    }
    return names;
}

// Moves a file's time, as a replacement of the file from outside would.
void touch(const std::filesystem::path& file, int secondsLater) {
    const auto now = std::filesystem::last_write_time(file);
    std::filesystem::last_write_time(file, now + std::chrono::seconds(secondsLater));
}

} // namespace

TEST(WorldFiles, LoadsCountriesAndTheirCitiesByOffsetOrBySearch) {
    test::TempDir dir;
    const Paths paths = test::writeWorld(
        dir.path(), {{"France", {sampleCity("Lyon"), sampleCity("Paris")}},
                     {"United Kingdom", {sampleCity("London")}},
                     {"Japan", {sampleCity("Osaka", 235, 0), sampleCity("Tokyo", 235, 0)}}});
    CountryList list;
    ASSERT_TRUE(loadCountries(paths, list, false));
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[2].name, "Japan");
    EXPECT_EQ(list[2].id, 2);
    EXPECT_TRUE(list[2].cities.empty()); // cities only on first use

    loadCities(paths, list[2], false);
    EXPECT_EQ(cityNames(list[2]), (std::vector<std::string>{"Osaka", "Tokyo"}));
    const City& tokyo = list[2].cities[1];
    EXPECT_EQ(tokyo.timeZoneIndex, 235);
    EXPECT_EQ(tokyo.dstRuleIndex, 0);
    EXPECT_FLOAT_EQ(tokyo.latitude, 51.51f);
    EXPECT_EQ(tokyo.weatherQuery, "Tokyo%2C+GB");

    Country france = list[0];
    france.firstCityOffset = 9999; // a wrong offset: search still finds them
    loadCities(paths, france, true);
    EXPECT_EQ(cityNames(france), (std::vector<std::string>{"Lyon", "Paris"}));

    // Loading again neither reloads nor duplicates.
    loadCities(paths, list[2], false);
    EXPECT_EQ(list[2].cities.size(), 2u);
    // reload replaces the list; without it a loaded list stays as it is.
    list.pop_back();
    loadCountries(paths, list, false);
    EXPECT_EQ(list.size(), 2u);
    loadCountries(paths, list, true);
    EXPECT_EQ(list.size(), 3u);
}

TEST(WorldFiles, LooksUpByExactName) {
    test::TempDir dir;
    const Paths paths = test::writeWorld(dir.path(), {{"Canada", {sampleCity("London")}},
                                                      {"United Kingdom", {sampleCity("London")}}});
    CountryList list;
    loadCountries(paths, list, false);
    EXPECT_EQ(findCountryByName(list, "United Kingdom"), &list[1]);
    EXPECT_EQ(findCountryByName(list, "united kingdom"), nullptr);
    loadCities(paths, list[1], false);
    EXPECT_NE(findCityByName(list[1], "London"), nullptr);
    EXPECT_EQ(findCityByName(list[1], "LONDON"), nullptr);
    EXPECT_EQ(countryAt(list, 2), nullptr);
    EXPECT_EQ(cityAt(list[1], 1), nullptr);
}

TEST(WorldFiles, ReadsBadFilesSafelyAndKeepsTheirQuirks) {
    test::TempDir dir;
    const Paths paths(dir.path());
    CountryList list;
    DstRuleList rules{{"x", "y"}};

    // Missing and empty files give empty lists.
    loadCountries(paths, list, true);
    loadDstRules(paths, rules);
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(rules.empty());
    writeFile(paths.dataFile("country40.dat"), "");
    loadCountries(paths, list, true);
    EXPECT_TRUE(list.empty());

    // LF-only lines: the LF ends the last field, SkipLine eats the next line.
    writeFile(paths.dataFile("country40.dat"), "0\t0\tA\n1\t0\tB\n2\t0\tC\n3\t0\tD\n");
    loadCountries(paths, list, true);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].name, "A");
    EXPECT_EQ(list[1].name, "C");

    // Too few fields go undetected: the name is read at the LF, and the line
    // skip then runs on to the end of the next line.
    writeFile(paths.dataFile("country40.dat"), "0\t0\r\n1\t5\tB\r\n2\t0\tC\r\n");
    loadCountries(paths, list, true);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].name, "");
    EXPECT_EQ(list[1].name, "C");

    // A field over 2047 bytes is cut there, and the next field still reads.
    const std::string longName(5000, 'x');
    writeFile(paths.dataFile("country40.dat"), "0\t0\t" + longName + "\tignored\r\n1\t0\tB\r\n");
    loadCountries(paths, list, true);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].name, std::string(2047, 'x'));
    EXPECT_EQ(list[1].name, "B");

    // A cut through a UTF-8 character drops the broken character only.
    std::string accented(2046, 'a');
    accented += "\xC3\xBC\xC3\xBC";
    writeFile(paths.dataFile("country40.dat"), "0\t0\t" + accented + "\r\n");
    loadCountries(paths, list, true);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].name, std::string(2046, 'a'));

    // Binary garbage, with NULs and no line ends, reads as something harmless.
    std::string garbage;
    for (int i = 0; i < 70000; ++i) {
        garbage += char((i * 7919) % 256);
    }
    writeFile(paths.dataFile("country40.dat"), garbage);
    writeFile(paths.dataFile("city40.dat"), garbage);
    writeFile(paths.dataFile("daylight40.dat"), garbage);
    loadCountries(paths, list, true);
    for (Country& country : list) {
        loadCities(paths, country, false);
        loadCities(paths, country, true);
    }
    loadDstRules(paths, rules);
    EXPECT_FALSE(list.empty());
}

TEST(WorldFiles, LoadsOnlyTheFirstRunOfACountrysCities) {
    test::TempDir dir;
    const Paths paths(dir.path());
    writeFile(paths.dataFile("country40.dat"), "0\t0\tA\r\n1\t0\tB\r\n");
    writeFile(paths.dataFile("city40.dat"), test::cityLine(0, sampleCity("A1")) +
                                                test::cityLine(1, sampleCity("B1")) +
                                                test::cityLine(0, sampleCity("A2")));
    CountryList list;
    loadCountries(paths, list, false);
    loadCities(paths, list[0], true);
    EXPECT_EQ(cityNames(list[0]), (std::vector<std::string>{"A1"}));
    // B's recorded offset 0 points at A's line: B gets no cities.
    loadCities(paths, list[1], false);
    EXPECT_TRUE(list[1].cities.empty());

    // The rebuild keeps the first run only and fixes B's offset.
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);
    CountryList again;
    loadCountries(paths, again, false);
    loadCities(paths, again[0], false);
    loadCities(paths, again[1], false);
    EXPECT_EQ(cityNames(again[0]), (std::vector<std::string>{"A1"}));
    EXPECT_EQ(cityNames(again[1]), (std::vector<std::string>{"B1"}));
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")).find("A2"), std::string::npos);
}

TEST(WorldFiles, RebuildRenumbersWithExactOffsetsAndRoundsCoordinates) {
    test::TempDir dir;
    const Paths paths(dir.path());
    // Ids out of order, offsets wrong, coordinates with four places, a rule
    // number above 127, a Windows-1252 name.
    writeFile(paths.dataFile("country40.dat"), "7\t999\tZ\xFCrich Land\r\n3\t0\tB\r\n");
    writeFile(paths.dataFile("city40.dat"),
              "3\tBee\t1.005\t-2.5\tBBB\t1\t\t85\t0\tBBBB\tBee%2C+BB\r\n"
              "7\tLondon\t-0.1278\t51.5074\tLHR\t44\t20\t85\t200\tEGLC\tLondon%2C+GB\r\n");
    CountryList list;
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);

    const std::string countries = readFile(paths.dataFile("country40.dat"));
    const std::string cities = readFile(paths.dataFile("city40.dat"));
    const std::string londonLine =
        "0\tLondon\t-0.13\t51.51\tLHR\t44\t20\t85\t-56\tEGLC\tLondon%2C+GB\r\n";
    EXPECT_EQ(cities, londonLine + "1\tBee\t1.00\t-2.50\tBBB\t1\t\t85\t0\tBBBB\tBee%2C+BB\r\n");
    EXPECT_EQ(countries,
              "0\t0\tZ\xC3\xBCrich Land\r\n1\t" + std::to_string(londonLine.size()) + "\tB\r\n");

    // Every recorded offset points at the first byte of the country's first line.
    CountryList reread;
    loadCountries(paths, reread, false);
    for (Country& country : reread) {
        EXPECT_EQ(cities.substr(std::size_t(country.firstCityOffset), 2),
                  std::to_string(country.id) + "\t");
        loadCities(paths, country, false);
        EXPECT_EQ(country.cities.size(), 1u);
    }
    EXPECT_EQ(reread[0].cities[0].dstRuleIndex, -56); // 200 kept as a signed byte

    // A second rebuild changes nothing.
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")), cities);
    EXPECT_EQ(readFile(paths.dataFile("country40.dat")), countries);
}

TEST(WorldFiles, TimeStampDecidesOnARebuild) {
    test::TempDir dir;
    const Paths empty(dir.path() / "empty");
    EXPECT_FALSE(dataFilesChanged(empty)); // nothing at all: nothing to do

    const Paths paths = test::writeWorld(dir.path(), {{"A", {sampleCity("A1")}}});
    EXPECT_TRUE(dataFilesChanged(paths)); // a fresh install has no tstamp.dat
    CountryList list;
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);
    EXPECT_FALSE(dataFilesChanged(paths));

    // 16 bytes, high word first, of the files' times in 100-ns ticks since 1601.
    const std::string stamp = readFile(paths.dataFile("tstamp.dat"));
    ASSERT_EQ(stamp.size(), 16u);
    auto word = [&](int i) {
        std::uint32_t w = 0;
        for (int b = 3; b >= 0; --b) {
            w = w << 8 | std::uint8_t(stamp[std::size_t(4 * i + b)]);
        }
        return std::uint64_t(w);
    };
    EXPECT_EQ(word(0) << 32 | word(1), fileTimeOf(paths.dataFile("city40.dat")).value());
    EXPECT_EQ(word(2) << 32 | word(3), fileTimeOf(paths.dataFile("country40.dat")).value());
    const std::int64_t seconds = unixFromFileTime(word(0) << 32 | word(1));
    EXPECT_NEAR(double(seconds), double(std::time(nullptr)), 600.0);

    touch(paths.dataFile("country40.dat"), 5);
    EXPECT_TRUE(dataFilesChanged(paths));
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);
    touch(paths.dataFile("city40.dat"), 5);
    EXPECT_TRUE(dataFilesChanged(paths));
    ASSERT_EQ(rebuildDataFiles(paths, list), RebuildResult::Done);

    // A stamp of the wrong size never matches.
    const std::string current = readFile(paths.dataFile("tstamp.dat"));
    writeFile(paths.dataFile("tstamp.dat"), current.substr(0, 12));
    EXPECT_TRUE(dataFilesChanged(paths));
    writeFile(paths.dataFile("tstamp.dat"), current + "extra");
    EXPECT_FALSE(dataFilesChanged(paths)); // only the first 16 bytes are read
}

TEST(WorldFiles, RebuildThatCannotWriteLeavesTheFilesAsTheyWere) {
    test::TempDir dir;
    const Paths paths = test::writeWorld(dir.path(), {{"A", {sampleCity("A1")}}});
    const std::string before = readFile(paths.dataFile("country40.dat"));
    // A folder where the rebuild's temporary city file would go blocks it,
    // even for root.
    std::filesystem::create_directories(paths.dataFile("city40.dat.new") / "x");
    CountryList list;
    EXPECT_EQ(rebuildDataFiles(paths, list), RebuildResult::NotWritten);
    EXPECT_EQ(readFile(paths.dataFile("country40.dat")), before);
    EXPECT_FALSE(std::filesystem::exists(paths.dataFile("country40.dat.new")));
    EXPECT_TRUE(dataFilesChanged(paths));

    std::filesystem::remove_all(paths.dataFile("city40.dat.new"));
    std::filesystem::create_directories(paths.dataFile("tstamp.dat.new") / "x");
    EXPECT_EQ(rebuildDataFiles(paths, list), RebuildResult::StampNotWritten);
    EXPECT_TRUE(dataFilesChanged(paths)); // so the next start tries again
}

} // namespace zonara

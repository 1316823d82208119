#include <gtest/gtest.h>

#include "net/WorldCheck.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {

using test::cityLine;
using test::sampleCity;
using test::writeFile;

namespace {

struct Files {
    std::string country = "0\t0\tFrance\r\n1\t0\tJapan\r\n";
    std::string city = cityLine(0, sampleCity("Paris")) + cityLine(0, sampleCity("Lyon")) +
                       cityLine(1, sampleCity("Tokyo", 235, 0));
    std::string daylight = "LastSunMar 01:00\tLastSunOct 00:59\r\n";
};

WorldProblem check(const Files& files, const std::filesystem::path& dir) {
    writeFile(dir / "country40.tmp", files.country);
    writeFile(dir / "city40.tmp", files.city);
    writeFile(dir / "daylight40.tmp", files.daylight);
    return checkWorldFiles({dir / "country40.tmp", dir / "city40.tmp", dir / "daylight40.tmp"},
                           dir);
}

} // namespace

TEST(WorldCheck, RefusesFilesThatWouldNotLoadAsWorldData) {
    using P = WorldProblem;
    struct Row {
        const char* name;
        std::function<void(Files&)> change;
        WorldProblem expected;
    };
    const Row rows[] = {
        {"whole", [](Files&) {}, P::None},
        {"no final line end", [](Files& f) { f.country = "0\t0\tFrance\r\n1\t0\tJapan"; }, P::None},
        {"LF line ends", [](Files& f) { f.country = "0\t0\tFrance\n1\t0\tJapan\n"; },
         P::BadCountryLine},
        {"no countries", [](Files& f) { f.country.clear(); }, P::NoCountries},
        {"an error page", [](Files& f) { f.country = "<html><body>502</body></html>\r\n"; },
         P::BadCountryLine},
        {"country id not a number", [](Files& f) { f.country = "x\t0\tFrance\r\n"; },
         P::BadCountryLine},
        {"country without a name", [](Files& f) { f.country = "0\t0\t\r\n"; }, P::BadCountryLine},
        {"blank line", [](Files& f) { f.country += "\r\n"; }, P::BadCountryLine},
        {"repeated id", [](Files& f) { f.country = "0\t0\tFrance\r\n0\t0\tJapan\r\n"; },
         P::RepeatedCountry},
        {"no cities", [](Files& f) { f.city.clear(); }, P::NoCities},
        {"ten fields",
         [](Files& f) { f.city = "0\tParis\t2.35\t48.85\tCDG\t33\t1\t110\t1\tLFPG\r\n"; },
         P::BadCityLine},
        {"longitude not a number",
         [](Files& f) { f.city = "0\tParis\teast\t48.85\tCDG\t33\t1\t110\t1\tLFPG\tParis\r\n"; },
         P::BadCityLine},
        {"cut short", [](Files& f) { f.city.resize(f.city.size() - 30); }, P::BadCityLine},
        {"country not listed", [](Files& f) { f.city += cityLine(7, sampleCity("Oslo")); },
         P::CityWithoutCountry},
        {"a country's cities apart", [](Files& f) { f.city += cityLine(0, sampleCity("Nice")); },
         P::CityWithoutCountry},
        {"rule 2 of 1", [](Files& f) { f.city = cityLine(0, sampleCity("Paris", 110, 2)); },
         P::UnknownRule},
        {"rule 200, read as a negative byte",
         [](Files& f) { f.city = "0\tParis\t2.35\t48.85\tCDG\t33\t1\t110\t200\tLFPG\tParis\r\n"; },
         P::UnknownRule},
        {"no rules, none used",
         [](Files& f) {
             f.city = cityLine(1, sampleCity("Tokyo", 235, 0));
             f.daylight.clear();
         },
         P::None},
        {"no rules, one used", [](Files& f) { f.daylight.clear(); }, P::UnknownRule},
        {"rule in no known form",
         [](Files& f) { f.daylight = "LastSunMrz 01:00\tLastSunOct 00:59\r\n"; }, P::BadRule},
        {"an error page for rules", [](Files& f) { f.daylight = "<html>\r\n"; }, P::BadRule},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::TempDir dir;
        Files files;
        row.change(files);
        EXPECT_EQ(check(files, dir.path()), row.expected);
        EXPECT_FALSE(std::filesystem::exists(dir.path() / "update-check"));
    }
}

TEST(WorldCheck, PassesTheShippedWorld) {
    test::TempDir dir;
    const Paths paths = test::copyShippedWorld(dir.path());
    EXPECT_EQ(checkWorldFiles({paths.dataFile("country40.dat"), paths.dataFile("city40.dat"),
                               paths.dataFile("daylight40.dat")},
                              paths.dataDir()),
              WorldProblem::None);
}

TEST(WorldCheck, ResolvesRuleTextsOfTheKnownForms) {
    const std::pair<const char*, bool> rows[] = {
        {"LastSunMar 01:00", true},
        {"FirstSunOct 02:00", true},
        {"FirstSunAfter08Mar 02:00", true},
        {"LastSatAfter06Nov 23:59", true},
        {"15Oct 03:00", true},
        {"29Feb 00:00", true},
        {"LastSunOct 01", true}, // minutes may be left out
        {"LastSunMrz 01:00", false},
        {"LastXyzMar 01:00", false},
        {"31Apr 01:00", false},
        {"00Mar 01:00", false},
        {"5Mar 01:00", false},
        {"FirstSunAfter32Mar 02:00", false},
        {"LastSunMar 24:00", false},
        {"LastSunMar 01:60", false},
        {"LastSunMar 1:00", false},
        {"LastSunMar", false},
        {"LastSunMar 01:00 and more", false},
        {"", false},
    };
    for (const auto& [text, resolves] : rows) {
        EXPECT_EQ(ruleTextResolves(text), resolves) << text;
    }
}

} // namespace zonara

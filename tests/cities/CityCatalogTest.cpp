#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cities/CityCatalog.h"
#include "cities/SearchKey.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

class CityCatalogTest : public ::testing::Test {
  protected:
    void SetUp() override { paths = test::writeWorld(dir.path(), world); }

    std::vector<std::pair<std::string, std::vector<City>>> world = {
        {"Australia", test::sampleCities({"Melbourne", "Sydney", "Canberra"})},
        {"Brazil", test::sampleCities({"São Paulo", "Rio de Janeiro", "Brasília"})},
        {"Canada", test::sampleCities({"Sydney", "Toronto"})},
        {"Empty Land", {}},
        {"Switzerland", test::sampleCities({"Zürich", "Geneva"})},
        {"United States", test::sampleCities({"New York", "Yorktown", "Sydney Mines"})},
        {"Vietnam", test::sampleCities({"Hồ Chí Minh", "Đà Nẵng"})},
        {"United Kingdom", test::sampleCities({"York", "London"})}};

    // "City, Country" for each hit, in order.
    std::vector<std::string> found(CityCatalog& catalog, const std::string& text,
                                   std::size_t limit = 10) {
        std::vector<std::string> names;
        for (const CityHit& hit : catalog.search(text, limit))
            names.push_back(catalog.city(hit).name + ", " + catalog.countries()[hit.country].name);
        return names;
    }

    test::TempDir dir;
    Paths paths;
};

TEST(SearchKeyTest, FoldsCaseAccentsAndLigatures) {
    // "Sa\u0303o" carries a decomposed tilde; Greek has no base letter and stands;
    // punctuation is at most one space between words.
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Zürich", "zurich"},
        {"ŁÓDŹ", "lodz"},
        {"Straße", "strasse"},
        {"Ærøskøbing", "aeroskobing"},
        {"N’Djamena", "ndjamena"},
        {" Port-au-Prince ", "port au prince"},
        {"Sa\u0303o  -- Paulo", "sao paulo"},
        {"?!", ""},
        {"Đà Nẵng", "da nang"},
        {"İzmir", "izmir"},
        {"Ḩawallī", "hawalli"},
        {"Sa\u0303o", "sao"},
        {"Αθήνα", "Αθήνα"},
        {"St. John's 2", "st johns 2"}};
    for (const auto& [name, key] : cases)
        EXPECT_EQ(searchKey(name), key) << name;
}

TEST_F(CityCatalogTest, SearchFindsAnyPartOfTheNameInEveryCountry) {
    struct Case {
        std::string text;
        std::size_t limit;
        std::vector<std::string> hits;
    };
    const std::vector<std::string> syd = {"Sydney, Australia", "Sydney, Canada",
                                          "Sydney Mines, United States"};
    // Names that start with the text first, then the others, each alphabetical.
    const std::vector<std::string> ne = {"New York, United States",    "Geneva, Switzerland",
                                         "Melbourne, Australia",       "Rio de Janeiro, Brazil",
                                         "Sydney, Australia",          "Sydney, Canada",
                                         "Sydney Mines, United States"};
    const std::vector<Case> cases = {
        {"  sYD ", 100, syd},
        {"ne", 100, ne},
        {"ne", 3, {ne.begin(), ne.begin() + 3}},
        {"ne", 0, {}},
        {"york",
         100,
         {"York, United Kingdom", "Yorktown, United States", "New York, United States"}},
        {"SÃO P", 100, {"São Paulo, Brazil"}},
        {"xyz", 100, {}},
        {"   ", 100, {}}};
    CityCatalog catalog(paths);
    for (const Case& c : cases)
        EXPECT_EQ(found(catalog, c.text, c.limit), c.hits) << '"' << c.text << "\" " << c.limit;
}

TEST_F(CityCatalogTest, CountriesAreReadOnceAndCitiesOnFirstUseUntilReload) {
    CityCatalog catalog(paths);
    ASSERT_EQ(catalog.countries().size(), 8u);
    // The files change after the countries were read: the last country's
    // offset stays, so its cities are read from the new file on first use.
    world.back().second = test::sampleCities({"Leeds", "Bath"});
    world.push_back({"Zambia", test::sampleCities({"Lusaka"})});
    test::writeWorld(dir.path(), world);
    EXPECT_EQ(catalog.countries().size(), 8u);
    EXPECT_EQ(found(catalog, "bath"), (std::vector<std::string>{"Bath, United Kingdom"}));
    // That first search read and kept every country's cities: an emptied
    // city file changes nothing.
    test::writeFile(paths.dataFile("city40.dat"), "");
    EXPECT_EQ(found(catalog, "toronto"), (std::vector<std::string>{"Toronto, Canada"}));
    EXPECT_TRUE(found(catalog, "lusaka").empty());
    EXPECT_TRUE(catalog.cities(3).empty());
    // Until the catalog is told that the files changed.
    test::writeWorld(dir.path(), {{"Australia", test::sampleCities({"Hobart"})}});
    catalog.reload();
    ASSERT_EQ(catalog.countries().size(), 1u);
    EXPECT_EQ(found(catalog, "hob"), (std::vector<std::string>{"Hobart, Australia"}));
    EXPECT_TRUE(found(catalog, "toronto").empty());
}

TEST_F(CityCatalogTest, LocatesTheSlotsCountryAndCityByExactName) {
    CityCatalog catalog(paths);
    EXPECT_EQ(catalog.locate("United Kingdom", "London"), (StartPoint{7, 1}));
    EXPECT_EQ(catalog.locate("Canada", "Sydney"), (StartPoint{2, 0}));
    // A city that is gone leaves its country; a country that is gone, nothing.
    EXPECT_EQ(catalog.locate("United Kingdom", "london"), (StartPoint{7, std::nullopt}));
    EXPECT_EQ(catalog.locate("united kingdom", "London"), std::nullopt);
    EXPECT_EQ(catalog.locate("Atlantis", "London"), std::nullopt);
}

TEST(CityCatalogMissingFilesTest, MissingFilesGiveAnEmptyCatalog) {
    test::TempDir dir;
    CityCatalog catalog{Paths(dir.path())};
    EXPECT_TRUE(catalog.search("Syd", 10).empty());
    EXPECT_EQ(catalog.locate("United Kingdom", "London"), std::nullopt);
}

} // namespace
} // namespace zonara

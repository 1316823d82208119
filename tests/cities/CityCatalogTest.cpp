#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cities/CityCatalog.h"
#include "cities/SearchKey.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

using test::sampleCity;

std::vector<City> citiesNamed(const std::vector<std::string>& names) {
    std::vector<City> cities;
    for (const std::string& name : names) {
        cities.push_back(sampleCity(name));
    }
    return cities;
}

class CityCatalogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        paths = test::writeWorld(
            dir.path(), {{"Australia", citiesNamed({"Melbourne", "Sydney", "Canberra"})},
                         {"Brazil", citiesNamed({"São Paulo", "Rio de Janeiro", "Brasília"})},
                         {"Canada", citiesNamed({"Sydney", "Toronto"})},
                         {"Empty Land", {}},
                         {"Switzerland", citiesNamed({"Zürich", "Geneva"})},
                         {"United States", citiesNamed({"New York", "Yorktown", "Sydney Mines"})},
                         {"Vietnam", citiesNamed({"Hồ Chí Minh", "Đà Nẵng"})},
                         {"United Kingdom", citiesNamed({"York", "London"})}});
    }

    // "City, Country" for each hit, in order.
    std::vector<std::string> found(CityCatalog& catalog, const std::string& text,
                                   std::size_t limit = 100) {
        std::vector<std::string> names;
        for (const CityHit& hit : catalog.search(text, limit)) {
            names.push_back(catalog.city(hit).name + ", " + catalog.countries()[hit.country].name);
        }
        return names;
    }

    test::TempDir dir;
    Paths paths;
};

TEST(SearchKeyTest, FoldsCaseAccentsAndLigatures) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Zürich", "zurich"},
        {"São Paulo", "sao paulo"},
        {"ŁÓDŹ", "lodz"},
        {"Straße", "strasse"},
        {"Ærøskøbing", "aeroskobing"},
        {"N’Djamena", "n'djamena"},
        {"Hồ Chí Minh", "ho chi minh"},
        {"Đà Nẵng", "da nang"},
        {"İzmir", "izmir"},
        {"Ḩawallī", "hawalli"},
        {"Sa\u0303o", "sao"}, // a decomposed tilde
        {"Αθήνα", "Αθήνα"},   // no base letter: stands
        {"St. John's 2", "st. john's 2"},
        {"", ""},
    };
    for (const auto& [name, key] : cases) {
        EXPECT_EQ(searchKey(name), key) << name;
    }
}

TEST_F(CityCatalogTest, SearchFindsAnyPartOfTheNameInEveryCountry) {
    struct Case {
        std::string text;
        std::vector<std::string> hits;
    };
    const std::vector<Case> cases = {
        {"Syd", {"Sydney, Australia", "Sydney, Canada", "Sydney Mines, United States"}},
        {"syd", {"Sydney, Australia", "Sydney, Canada", "Sydney Mines, United States"}},
        {"  SYD ", {"Sydney, Australia", "Sydney, Canada", "Sydney Mines, United States"}},
        {"york", {"York, United Kingdom", "Yorktown, United States", "New York, United States"}},
        // Names that start with the text first, then the others, each alphabetical.
        {"ne",
         {"New York, United States", "Geneva, Switzerland", "Melbourne, Australia",
          "Rio de Janeiro, Brazil", "Sydney, Australia", "Sydney, Canada",
          "Sydney Mines, United States"}},
        {"sao", {"São Paulo, Brazil"}},
        {"SÃO P", {"São Paulo, Brazil"}},
        {"zurich", {"Zürich, Switzerland"}},
        {"Zür", {"Zürich, Switzerland"}},
        {"ho chi", {"Hồ Chí Minh, Vietnam"}},
        {"da nang", {"Đà Nẵng, Vietnam"}},
        {"brasil", {"Brasília, Brazil"}},
        {"toronto", {"Toronto, Canada"}},
        {"xyz", {}},
        {"", {}},
        {"   ", {}},
    };
    CityCatalog catalog(paths);
    for (const Case& c : cases) {
        EXPECT_EQ(found(catalog, c.text), c.hits) << '"' << c.text << '"';
    }
}

TEST_F(CityCatalogTest, SearchKeepsTheFirstHitsUpToTheLimit) {
    CityCatalog catalog(paths);
    EXPECT_EQ(found(catalog, "ne", 3),
              (std::vector<std::string>{"New York, United States", "Geneva, Switzerland",
                                        "Melbourne, Australia"}));
    EXPECT_EQ(found(catalog, "ne", 1), (std::vector<std::string>{"New York, United States"}));
    EXPECT_TRUE(found(catalog, "ne", 0).empty());
}

TEST_F(CityCatalogTest, CountriesAreReadOnceAndCitiesOnFirstUse) {
    CityCatalog catalog(paths);
    ASSERT_EQ(catalog.countries().size(), 8u);
    EXPECT_EQ(catalog.countries()[4].name, "Switzerland");

    // The files change after the countries were read: Australia keeps its
    // offset 0, so its cities are read from the new file on their first use.
    test::writeWorld(dir.path(), {{"Australia", citiesNamed({"Perth", "Darwin"})}});
    EXPECT_EQ(catalog.countries().size(), 8u);
    ASSERT_EQ(catalog.cities(0).size(), 2u);
    EXPECT_EQ(catalog.cities(0)[1].name, "Darwin");
    EXPECT_EQ(catalog.city({0, 0}).name, "Perth");

    // Once read, they are kept, and a search uses them.
    test::writeWorld(dir.path(), {{"Australia", citiesNamed({"Hobart"})}});
    EXPECT_EQ(catalog.cities(0).size(), 2u);
    EXPECT_EQ(found(catalog, "darw"), (std::vector<std::string>{"Darwin, Australia"}));
    EXPECT_TRUE(found(catalog, "hob").empty());

    // Until the catalog is told that the files changed.
    catalog.reload();
    ASSERT_EQ(catalog.countries().size(), 1u);
    EXPECT_EQ(found(catalog, "hob"), (std::vector<std::string>{"Hobart, Australia"}));
}

TEST_F(CityCatalogTest, FirstSearchReadsEveryCountryAndKeepsThem) {
    CityCatalog catalog(paths);
    EXPECT_EQ(found(catalog, "york").size(), 3u);
    // Every country's cities were read by the search: replacing the city file
    // changes nothing any more.
    test::writeFile(paths.dataFile("city40.dat"), "");
    EXPECT_EQ(catalog.cities(7).size(), 2u);
    EXPECT_EQ(catalog.cities(5)[2].name, "Sydney Mines");
    EXPECT_TRUE(catalog.cities(3).empty());
}

TEST_F(CityCatalogTest, LocatesTheSlotsCountryAndCityByExactName) {
    CityCatalog catalog(paths);
    EXPECT_EQ(catalog.locate("United Kingdom", "London"), (StartPoint{7, 1}));
    EXPECT_EQ(catalog.locate("Canada", "Sydney"), (StartPoint{2, 0}));
    // A city that is gone leaves its country; a country that is gone, nothing.
    EXPECT_EQ(catalog.locate("United Kingdom", "Paris"), (StartPoint{7, std::nullopt}));
    EXPECT_EQ(catalog.locate("United Kingdom", "london"), (StartPoint{7, std::nullopt}));
    EXPECT_EQ(catalog.locate("united kingdom", "London"), std::nullopt);
    EXPECT_EQ(catalog.locate("Atlantis", "London"), std::nullopt);
}

TEST(CityCatalogMissingFilesTest, MissingFilesGiveAnEmptyCatalog) {
    test::TempDir dir;
    CityCatalog catalog{Paths(dir.path())};
    EXPECT_TRUE(catalog.countries().empty());
    EXPECT_TRUE(catalog.search("Syd", 10).empty());
    EXPECT_EQ(catalog.locate("United Kingdom", "London"), std::nullopt);
}

} // namespace
} // namespace zonara

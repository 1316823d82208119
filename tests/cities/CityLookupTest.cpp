#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cities/CityLookup.h"
#include "cities/NameDistance.h"
#include "core/Text.h"
#include "support/TempDir.h"
#include "support/WorldFixture.h"

namespace zonara {
namespace {

// "Outcome: City (Country), ..." so that a row states the whole answer.
std::string describe(CityCatalog& catalog, const CityLookup& lookup) {
    static constexpr const char* outcomes[] = {"found", "blank", "ambiguous", "not found"};
    std::string text = outcomes[int(lookup.outcome)];
    for (std::size_t i = 0; i < lookup.candidates.size(); ++i) {
        const CityHit hit = lookup.candidates[i];
        text += (i == 0 ? ": " : ", ") + catalog.city(hit).name + " (" +
                catalog.countries()[hit.country].name + ")";
    }
    return text + (lookup.fromOtherCountries ? " elsewhere" : "");
}

class CityLookupTest : public ::testing::Test {
  protected:
    void SetUp() override {
        test::writeWorld(
            dir.path(),
            {{"Brazil", test::sampleCities({"São Paulo", "Rio de Janeiro", "Brasília"})},
             {"Canada", test::sampleCities({"London", "Sydney", "St. John's"})},
             {"Chad", test::sampleCities({"N'Djamena"})},
             {"Haiti", test::sampleCities({"Port-au-Prince"})},
             {"Australia", test::sampleCities({"Sydney", "Melbourne", "Perth"})},
             {"Switzerland", test::sampleCities({"Zürich", "Genève", "Bern"})},
             {"United Kingdom", test::sampleCities({"London", "Londonderry", "Perth", "York"})},
             {"United States", test::sampleCities({"New York", "Newark", "San Diego", "San Jose"})},
             {"Côte d'Ivoire", test::sampleCities({"Abidjan"})}});
    }
    std::string city(const std::string& typed, std::optional<std::size_t> country = {}) {
        return describe(catalog, lookupCity(catalog, typed, country));
    }

    test::TempDir dir;
    CityCatalog catalog{Paths(dir.path())};
};

TEST_F(CityLookupTest, FindsACityAsPeopleTypeIt) {
    struct Case {
        const char* typed;
        const char* answer;
    };
    const Case cases[] = {
        // Case, accents and the blanks around are not looked at.
        {"zurich", "found: Zürich (Switzerland)"},
        {"ZÜRICH", "found: Zürich (Switzerland)"},
        {"  sao paulo ", "found: São Paulo (Brazil)"},
        {"GENEVE", "found: Genève (Switzerland)"},
        // Nor are apostrophes, hyphens and the dots of abbreviations.
        {"ndjamena", "found: N'Djamena (Chad)"},
        {"N’Djamena", "found: N'Djamena (Chad)"},
        {"port au prince", "found: Port-au-Prince (Haiti)"},
        {"Port-Au-Prince", "found: Port-au-Prince (Haiti)"},
        {"st johns", "found: St. John's (Canada)"},
        // A unique beginning is enough; an exact name wins over longer ones.
        {"zur", "found: Zürich (Switzerland)"},
        {"new y", "found: New York (United States)"},
        {"york", "found: York (United Kingdom)"},
        {"new", "ambiguous: New York (United States), Newark (United States)"},
        {"london", "ambiguous: London (Canada), London (United Kingdom)"},
        {"londond", "found: Londonderry (United Kingdom)"},
        {"san", "ambiguous: San Diego (United States), San Jose (United States)"},
        // Nothing to look for.
        {"", "blank"},
        {"   ", "blank"},
        {"-'.!", "blank"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(city(c.typed), c.answer) << '"' << c.typed << '"';
}

TEST_F(CityLookupTest, OffersTheClosestNamesForAMisspelling) {
    struct Case {
        const char* typed;
        const char* answer;
    };
    const Case cases[] = {
        {"Zurick", "not found: Zürich (Switzerland)"},      // one letter wrong
        {"Zrich", "not found: Zürich (Switzerland)"},       // one missing
        {"Melbourrne", "not found: Melbourne (Australia)"}, // one extra
        // Two swapped; two wrong. Equal names follow their countries' order.
        {"Sydeny", "not found: Sydney (Canada), Sydney (Australia)"},
        {"Sidny", "not found: Sydney (Canada), Sydney (Australia)"},
        {"Rio de Janiero", "not found: Rio de Janeiro (Brazil)"},
        {"Brasilai", "not found: Brasília (Brazil)"},
        // A misspelt beginning comes after whole names as far off.
        {"Londn", "not found: London (Canada), London (United Kingdom), Londonderry (United "
                  "Kingdom)"},
        {"Parth", "not found: Perth (Australia), Perth (United Kingdom), Port-au-Prince (Haiti)"},
        // Short names allow one edit only; names that contain the text come last.
        {"ork", "not found: York (United Kingdom), New York (United States)"},
        {"Bren", "not found: Bern (Switzerland)"},
        {"Zqxw", "not found"},
        {"Xy", "not found"},
        // At most five, in name order when equally close.
        {"e", "not found: Bern (Switzerland), Genève (Switzerland), Londonderry (United Kingdom), "
              "Melbourne (Australia), N'Djamena (Chad)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(city(c.typed), c.answer) << '"' << c.typed << '"';
}

TEST_F(CityLookupTest, ACountryNarrowsTheSearch) {
    const std::size_t canada = 1, australia = 4, unitedKingdom = 6;
    struct Case {
        const char* typed;
        std::size_t country;
        const char* answer;
    };
    const Case cases[] = {
        {"london", canada, "found: London (Canada)"},
        {"london", unitedKingdom, "found: London (United Kingdom)"},
        {"perth", australia, "found: Perth (Australia)"},
        {"syd", australia, "found: Sydney (Australia)"},
        {"lond", unitedKingdom, "ambiguous: London (United Kingdom), Londonderry (United Kingdom)"},
        {"Sydny", canada, "not found: Sydney (Canada)"},
        // Nothing close in the country: close names from every country.
        {"Zurich", canada, "not found: Zürich (Switzerland) elsewhere"},
        {"Qqqq", canada, "not found"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(city(c.typed, c.country), c.answer) << '"' << c.typed << "\" in " << c.country;
}

TEST_F(CityLookupTest, FindsCountriesTheSameWay) {
    struct Case {
        const char* typed;
        LookupOutcome outcome;
        std::vector<std::string> names;
    };
    const Case cases[] = {
        {"united kingdom", LookupOutcome::Found, {"United Kingdom"}},
        {"SWITZ", LookupOutcome::Found, {"Switzerland"}},
        {"cote divoire", LookupOutcome::Found, {"Côte d'Ivoire"}},
        {"united", LookupOutcome::Ambiguous, {"United Kingdom", "United States"}},
        {"ca", LookupOutcome::Found, {"Canada"}},
        {"Swizerland", LookupOutcome::NotFound, {"Switzerland"}},
        {"Brasil", LookupOutcome::NotFound, {"Brazil"}},
        {"Atlantis", LookupOutcome::NotFound, {}},
        {" ", LookupOutcome::Blank, {}},
    };
    for (const Case& c : cases) {
        const CountryLookup lookup = lookupCountry(catalog, c.typed);
        std::vector<std::string> names;
        for (const std::size_t index : lookup.candidates)
            names.push_back(catalog.countries()[index].name);
        EXPECT_EQ(lookup.outcome, c.outcome) << c.typed;
        EXPECT_EQ(names, c.names) << c.typed;
    }
}

TEST(NameDistanceTest, CountsLettersWrongMissingExtraOrSwapped) {
    struct Case {
        const char* typed;
        const char* name;
        std::size_t whole;
        std::size_t toPrefix;
    };
    const Case cases[] = {
        {"zurich", "zurich", 0, 0}, {"zurick", "zurich", 1, 1},
        {"zrich", "zurich", 1, 1},  {"zuurich", "zurich", 1, 1},
        {"zuirch", "zurich", 1, 1}, // neighbours swapped count once
        {"zruihc", "zurich", 2, 2}, {"lond", "londonderry", 7, 0},
        {"lnod", "london", 3, 1},   {"", "york", 4, 0},
        {"york", "", 4, 4},         {"abc", "ca", 3, 2}, // a swap is not edited again
        {"αθηνα", "αθηνα", 0, 0},                        // letters, not bytes
        {"αθινα", "αθηνα", 1, 1},
    };
    for (const Case& c : cases) {
        const NameDistance d = nameDistance(toUtf16(c.typed), toUtf16(c.name));
        EXPECT_EQ(d.whole, c.whole) << c.typed << " / " << c.name;
        EXPECT_EQ(d.toPrefix, c.toPrefix) << c.typed << " / " << c.name;
    }
}

} // namespace
} // namespace zonara

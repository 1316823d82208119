#include "net/CurrencyConverter.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "net/CurrencyFiles.h"
#include "net/CurrencyLookup.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::TempDir;

const CurrencyList rates = {u"3/14/2025 9:05 AM",
                            {
                                {u"Bol\u00edvar Soberano", u"VED", 40.0f},
                                {u"Bol\u00edvar Soberano", u"VES", 39.5f},
                                {u"Euro", u"EUR", -1.0f},
                                {u"Pound Sterling", u"GBP", 0.8358f},
                                {u"US Dollar", u"USD", 1.5f},
                                {u"Yen", u"JPY", 160.5f},
                            }};

class ConverterRig {
  public:
    ConverterRig() { std::filesystem::create_directories(dir.path() / "Data"); }
    Paths paths() const { return Paths(dir.path()); }
    void store(const CurrencyList& list) {
        ASSERT_TRUE(SaveCurrencyList(paths().dataFile("currency.dat"), list));
    }
    void storeChoice(const CurrencyChoice& choice) {
        ASSERT_TRUE(SaveCurrencyChoice(paths().dataFile("scurrency.dat"), choice));
    }
    TempDir dir;
};

TEST(CurrencyConverterTest, FirstStartWithoutRatesSaysHowToGetThem) {
    ConverterRig rig;
    CurrencyConverter converter(rig.paths());
    converter.open();
    EXPECT_FALSE(converter.hasCurrencies());
    EXPECT_TRUE(converter.itemTexts().empty());
    EXPECT_EQ(converter.fromIndex(), -1);
    EXPECT_EQ(converter.toIndex(), -1);
    EXPECT_EQ(converter.statusLine(), noRatesDialogHint);
    EXPECT_EQ(converter.convert("100"), std::nullopt);
    EXPECT_TRUE(std::filesystem::exists(rig.paths().dataFile("currency.dat")));

    // The first refresh brings the euro and the dollar as the pair.
    converter.applyRefresh(rates);
    EXPECT_EQ(converter.fromIndex(), 2);
    EXPECT_EQ(converter.toIndex(), 4);
    EXPECT_EQ(converter.statusLine(), "Last Update : 3/14/2025 9:05 AM");
    EXPECT_EQ(converter.convert("100"), "150.0000");
}

TEST(CurrencyConverterTest, PairIsRestoredAndKeptByItemText) {
    struct Case {
        const char* what;
        CurrencyChoice stored;
        int from;
        int to;
    };
    const Case cases[] = {
        {"exact texts", {u"US Dollar (USD)", u"Yen (JPY)"}, 4, 5},
        {"case does not matter", {u"pound sterling (gbp)", u"EURO (EUR)"}, 3, 2},
        {"the second of two equal names", {u"Bol\u00edvar Soberano (VES)", u"Yen (JPY)"}, 1, 5},
        {"unknown texts: euro and dollar", {u"Rand (ZAR)", u"Yen"}, 2, 4},
        {"nothing stored", {}, 2, 4},
    };
    for (const Case& c : cases) {
        ConverterRig rig;
        rig.store(rates);
        rig.storeChoice(c.stored);
        CurrencyConverter converter(rig.paths());
        converter.open();
        EXPECT_EQ(converter.fromIndex(), c.from) << c.what;
        EXPECT_EQ(converter.toIndex(), c.to) << c.what;
    }

    // Choose, close, open again; a refresh that reorders the list keeps the pair.
    ConverterRig rig;
    rig.store(rates);
    CurrencyConverter first(rig.paths());
    first.open();
    first.selectFrom(5);
    first.selectTo(3);
    EXPECT_EQ(first.convert("1000"), "5.2075");
    ASSERT_TRUE(first.close());
    EXPECT_EQ(LoadCurrencyChoice(rig.paths().dataFile("scurrency.dat")),
              (CurrencyChoice{u"Yen (JPY)", u"Pound Sterling (GBP)"}));

    CurrencyConverter second(rig.paths());
    second.open();
    EXPECT_EQ(second.fromIndex(), 5);
    EXPECT_EQ(second.toIndex(), 3);
    CurrencyList fewer = {u"3/15/2025 9:00 AM",
                          {rates.entries[2], rates.entries[3], rates.entries[5]}};
    second.applyRefresh(fewer);
    EXPECT_EQ(second.fromIndex(), 2);
    EXPECT_EQ(second.toIndex(), 1);
    second.selectFrom(7);
    EXPECT_EQ(second.fromIndex(), -1);
    EXPECT_EQ(second.convert("1"), std::nullopt);
}

TEST(CurrencyConverterTest, TypedNamesFindTheirCurrencies) {
    struct Case {
        const char* typed;
        std::vector<std::size_t> found;
    };
    const Case cases[] = {
        {"USD", {4}},
        {"usd", {4}},
        {"us dollar", {4}},
        {"YEN (jpy)", {5}},
        {"bol\u00edvar soberano", {0, 1}},
        {"Dollar", {}},
        {"", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(findCurrencies(rates, c.typed), c.found) << c.typed;
    }
    EXPECT_EQ(currencyItemText(rates.entries[3]), u"Pound Sterling (GBP)");
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/Paths.h"
#include "net/CurrencyFiles.h"
#include "support/CommandRunner.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;

const CurrencyList stored = {u"3/14/2025 9:05 AM",
                             {
                                 {u"Bol\u00edvar Soberano", u"VED", 40.0f},
                                 {u"Bol\u00edvar Soberano", u"VES", 39.5f},
                                 {u"Euro", u"EUR", -1.0f},
                                 {u"Pound Sterling", u"GBP", 0.8358f},
                                 {u"US Dollar", u"USD", 1.5f},
                                 {u"Yen", u"JPY", 0.0f},
                             }};

class Root {
  public:
    explicit Root(bool withRates = true) {
        fs::create_directories(paths.dataDir());
        if (withRates) {
            EXPECT_TRUE(SaveCurrencyList(paths.dataFile("currency.dat"), stored));
        }
    }
    test::CommandResult run(std::vector<std::string> words) const {
        words.insert(words.begin(), {"--root", dir.path().string()});
        return test::runZonara(words);
    }

    test::TempDir dir;
    Paths paths{dir.path()};
};

TEST(CmdCurrency, ConvertsBetweenCodesOrNamesAsTheConverterDoes) {
    struct Case {
        std::vector<std::string> words;
        int exitCode;
        const char* out;
        const char* err; // a part of it
    };
    const Case cases[] = {
        {{"100", "eur", "usd"}, 0, "100 EUR = 150.0000 USD\n", ""},
        {{"100", "USD", "Euro"}, 0, "100 USD = 66.6667 EUR\n", ""},
        {{"--tsv", "2.5", "us", "dollar", "pound", "sterling"}, 0, "2.5\tUSD\tGBP\t1.3930\n", ""},
        {{"1", "Pound Sterling (GBP)", "eur"}, 0, "1 GBP = 1.1965 EUR\n", ""},
        {{"10", "VES", "eur"}, 0, "10 VES = 0.2532 EUR\n", ""},
        {{"1", "jpy", "eur"}, 0, "1 JPY = inf EUR\n", "JPY was not published as a number"},
        {{"10", "bolivar soberano", "eur"}, 1, "", "could be Bol\u00edvar Soberano (VED), Bol"},
        {{"10", "eur", "xyz"}, 1, "", "no currency 'xyz'"},
        {{"ten", "eur", "usd"}, 1, "", "'ten' is not an amount"},
        {{"100", "eur"}, 1, "", "give an amount and two currencies"},
        {{"100", "euro", "us", "pound"}, 1, "", "which two currencies?"},
    };
    const Root root;
    for (const Case& c : cases) {
        std::vector<std::string> words = {"currency"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const test::CommandResult r = root.run(words);
        EXPECT_EQ(r.exitCode, c.exitCode) << words[2] << " " << r.err;
        EXPECT_EQ(r.out, c.out) << words[2];
        EXPECT_NE(r.err.find(c.err), std::string::npos) << r.err;
    }

    const test::CommandResult none = Root(false).run({"currency", "1", "eur", "usd"});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_NE(none.err.find("zonara rates --refresh"), std::string::npos) << none.err;
}

TEST(CmdRates, ListsTheStoredRatesWithTheirLastUpdate) {
    const Root root;
    const test::CommandResult tsv = root.run({"rates", "--tsv"});
    EXPECT_EQ(tsv.exitCode, 0);
    EXPECT_EQ(tsv.out, "Bol\u00edvar Soberano\tVED\t40\n"
                       "Bol\u00edvar Soberano\tVES\t39.5\n"
                       "Euro\tEUR\t1\n"
                       "Pound Sterling\tGBP\t0.8358\n"
                       "US Dollar\tUSD\t1.5\n"
                       "Yen\tJPY\t0\n");
    EXPECT_EQ(tsv.err, "zonara rates: Last Update : 3/14/2025 9:05 AM\n");

    const test::CommandResult people = root.run({"rates"});
    EXPECT_EQ(people.exitCode, 0);
    EXPECT_EQ(people.out.rfind("Last Update : 3/14/2025 9:05 AM\n\n", 0), 0u) << people.out;
    EXPECT_NE(people.out.find("US Dollar"), std::string::npos);

    const test::CommandResult none = Root(false).run({"rates"});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_NE(none.err.find("No currency rates stored yet"), std::string::npos) << none.err;
    EXPECT_EQ(root.run({"rates", "extra"}).exitCode, 1);
}

TEST(CmdRates, RefreshPrintsEachStepAndFailsKeepingTheStoredRates) {
    test::LocalHttpServer server;
    ASSERT_TRUE(server.listening());
    server.route("/codes.xml", test::reply(200, R"(<CurrencyCodeList>
	<Currency><CurrencyCoded>CHF</CurrencyCoded><CurrencyName>Swiss Franc</CurrencyName></Currency>
</CurrencyCodeList>)"));
    server.route(
        "/rates.xml",
        test::reply(
            200,
            R"(<gesmes:Envelope xmlns:gesmes="http://www.gesmes.org/xml/2002-08-01" xmlns="http://www.ecb.int/vocabulary/2002-08-01/eurofxref">
	<Cube><Cube time='2025-03-17'><Cube currency='CHF' rate='0.96'/></Cube></Cube>
</gesmes:Envelope>)"));
    const std::string ini = "[network]\nhttp_port=" + std::to_string(server.port()) +
                            "\ntimeout_s=5\n[currency]\ncodes=http://127.0.0.1/codes.xml\n";
    struct Case {
        const char* rates; // the rates source's path
        bool tsv;
        int exitCode;
        const char* out;
        const char* err; // a part of it
    };
    const Case cases[] = {
        {"/rates.xml", false, 0,
         "Dial Connection\nDownload Currency Code\nDownload Rates\nRebuilding Data\n"
         "Last Update : 3/17/2025 4:20 PM\n\nCurrency ",
         ""},
        {"/rates.xml", true, 0, "Euro\tEUR\t1\nSwiss Franc\tCHF\t0.96\n", "Rebuilding Data\n"},
        {"/missing.xml", false, 1,
         "Dial Connection\nDownload Currency Code\nDownload Rates\nDownload Failed\n",
         "the stored ones are kept"},
    };
    for (const Case& c : cases) {
        const Root root;
        test::writeFile(root.dir.path() / "zonara.ini",
                        ini + "rates=http://127.0.0.1" + c.rates + "\n");
        std::vector<std::string> words = {"--at", "2025-03-17T16:20:00Z", "rates", "--refresh"};
        if (c.tsv) {
            words.push_back("--tsv");
        }
        const test::CommandResult r = root.run(words);
        EXPECT_EQ(r.exitCode, c.exitCode) << c.rates << r.err;
        EXPECT_EQ(r.out.substr(0, std::string(c.out).size()), c.out) << c.rates;
        EXPECT_NE(r.err.find(c.err), std::string::npos) << r.err;
        const CurrencyList after = LoadCurrencyList(root.paths.dataFile("currency.dat"));
        EXPECT_EQ(after == stored, c.exitCode != 0) << c.rates;
    }
}

} // namespace
} // namespace zonara

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "CurrencyTestDocuments.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyTransfer.h"
#include "net/FetchFile.h"
#include "support/LocalHttpServer.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"

namespace zonara {
namespace {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

constexpr const char* ratesPath = "/stats/eurofxref/eurofxref-daily.xml";
constexpr const char* codesPath = "/etrades/unedocs/repository/codelists/xml/CurrencyCodeList.xml";

using test::ratesDocument;

const std::string bankRates = ratesDocument("\t\t\t<Cube currency='USD' rate='1.0844'/>\n"
                                            "\t\t\t<Cube currency='JPY' rate='160.5'/>\n"
                                            "\t\t\t<Cube currency='GBP' rate='n/a'/>\n");
// The copy on the update host is older: other figures.
const std::string copiedRates = ratesDocument("\t\t\t<Cube currency='USD' rate='1.1'/>\n"
                                              "\t\t\t<Cube currency='JPY' rate='150'/>\n");

// The code list's publisher, with a name that the shipped list spells otherwise.
const std::string publishedCodes = test::codeListDocument(
    {{"GBP", "Pound Sterling"}, {"JPY", "Yen"}, {"USD", "United States Dollar"}});

const CurrencyList stored = {u"1/2/2025 10:00 AM",
                             {{u"Euro", u"EUR", -1.0f}, {u"Yen", u"JPY", 158.0f}}};

const std::vector<std::string> fullRun = {"Dial Connection", "Download Currency Code",
                                          "Download Rates", "Rebuilding Data",
                                          "Last Update : 3/17/2025 4:20 PM"};

// Transfers have one HTTP port, so this server stands in front of the update
// host: it plays the central bank and the code list's publisher itself and
// hands the update host's paths on to nginx.
class Sources {
  public:
    explicit Sources(std::uint16_t updateHostPort) {
        NetworkConfig behind;
        behind.httpPort = updateHostPort;
        behind.timeout = std::chrono::seconds(5);
        const auto passOn = [this, behind](const test::HttpRequest& request,
                                           test::HttpConnection& connection) {
            const fs::path body = scratch.path() / "passed";
            std::lock_guard lock(passing);
            if (fetchFile(behind, "http://127.0.0.1" + request.path(), body, nullptr).ok) {
                connection.send(test::httpResponse(200, readFile(body)));
            } else {
                connection.send(test::httpResponse(404, "not on the update host"));
            }
        };
        server.route("/CurrencyCodeList.xml", passOn);
        server.route("/eurofxref-daily.xml", passOn);
    }

    void serve(const std::string& path, const std::string& document) {
        server.route(path, test::reply(200, document, "Content-Type: text/xml\r\n"));
    }

    std::vector<std::string> paths() const {
        std::vector<std::string> asked;
        for (const test::HttpRequest& request : server.requests()) {
            asked.push_back(request.path());
        }
        return asked;
    }

    test::LocalHttpServer server;

  private:
    test::TempDir scratch;
    std::mutex passing;
};

TEST(CurrencyRefreshServers, EachDocumentFromTheFirstSourceThatAnswers) {
    const fs::path shipped = test::sourceDir() / "data";
    test::TempDir publisher;
    writeFile(publisher.path() / "eurofxref-daily.xml", copiedRates);
    test::UpdateHost host(shipped, {publisher.path() / "eurofxref-daily.xml"});
    ASSERT_TRUE(host.ok()) << host.error();
    // Compared whole without printing both: the list is long.
    ASSERT_TRUE(readFile(host.tree() / "CurrencyCodeList.xml") ==
                readFile(shipped / "sources" / "CurrencyCodeList.xml"))
        << "the update host does not serve the shipped code list";

    // 127.0.0.2 is a loopback address nothing listens on: a source that is down.
    const std::string up = "http://127.0.0.1";
    const std::string down = "http://127.0.0.2";
    struct Row {
        const char* what;
        std::string codes; // the first sources' hosts
        std::string rates;
        std::string updateHost;
        bool hostHasRates;
        std::string publishedCodes; // what the publisher's server answers
        std::vector<std::string> statuses;
        std::vector<std::string> asked; // paths asked of the test's server, in order
        CurrencyList list;              // the stored list afterwards
        bool copiesKept;
    };
    const std::string updateCodes = "/CurrencyCodeList.xml";
    const std::string updateRates = "/eurofxref-daily.xml";
    const std::vector<CurrencyEntry> fromBank = {{u"Euro", u"EUR", -1.0f},
                                                 {u"Pound Sterling", u"GBP", 0.0f},
                                                 {u"United States Dollar", u"USD", 1.0844f},
                                                 {u"Yen", u"JPY", 160.5f}};
    const CurrencyList afterRefresh = {u"3/17/2025 4:20 PM", fromBank};
    const std::vector<std::string> failedDownload = {"Dial Connection", "Download Currency Code",
                                                     "Download Rates", "Download Failed"};
    const Row rows[] = {
        {"both first sources up",
         up,
         up,
         "127.0.0.1",
         true,
         publishedCodes,
         fullRun,
         {codesPath, ratesPath},
         afterRefresh,
         false},
        {"the publisher down: iso-codes' names from the update host",
         down,
         up,
         "127.0.0.1",
         true,
         publishedCodes,
         fullRun,
         {updateCodes, ratesPath},
         CurrencyList{u"3/17/2025 4:20 PM",
                      {{u"Euro", u"EUR", -1.0f},
                       {u"Pound Sterling", u"GBP", 0.0f},
                       {u"US Dollar", u"USD", 1.0844f},
                       {u"Yen", u"JPY", 160.5f}}},
         false},
        {"the bank down: the update host's copy",
         up,
         down,
         "127.0.0.1",
         true,
         publishedCodes,
         fullRun,
         {codesPath, updateRates},
         CurrencyList{u"3/17/2025 4:20 PM",
                      {{u"Euro", u"EUR", -1.0f},
                       {u"United States Dollar", u"USD", 1.1f},
                       {u"Yen", u"JPY", 150.0f}}},
         false},
        {"the bank down and no copy",
         up,
         down,
         "127.0.0.1",
         false,
         publishedCodes,
         failedDownload,
         {codesPath, updateRates},
         stored,
         true},
        {"no update host either",
         down,
         down,
         "",
         true,
         publishedCodes,
         {"Dial Connection", "Download Currency Code", "Download Failed"},
         {},
         stored,
         false},
        {"a code list that does not parse",
         up,
         up,
         "127.0.0.1",
         true,
         "<CurrencyCodeList><Currency><CurrencyCoded>USD</Currency>",
         {"Dial Connection", "Download Currency Code", "Download Rates", "Rebuilding Data",
          "Load Data Failed"},
         {codesPath, ratesPath},
         stored,
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        if (row.hostHasRates) {
            ASSERT_TRUE(host.publish(shipped, {publisher.path() / "eurofxref-daily.xml"}));
        } else {
            fs::remove(host.tree() / "eurofxref-daily.xml");
        }
        Sources sources(host.port());
        ASSERT_TRUE(sources.server.listening());
        sources.serve(codesPath, row.publishedCodes);
        sources.serve(ratesPath, bankRates);

        Config config;
        config.network.httpPort = sources.server.port();
        config.network.timeout = std::chrono::seconds(5);
        config.currency.codes = row.codes + codesPath;
        config.currency.rates = row.rates + ratesPath;
        config.update.primary = row.updateHost;

        test::TempDir root;
        const Paths paths(root.path());
        fs::create_directories(paths.dataDir());
        ASSERT_TRUE(SaveCurrencyList(paths.dataFile("currency.dat"), stored));
        CurrencyRefreshSetup setup = currencyRefreshSetup(
            paths, config, ClockSource::fixedAt(*parseIsoUtc("2025-03-17T16:20:00Z")));
        setup.utcOffsetMinutes = [](const SystemTime&) { return 0; };
        std::vector<std::string> statuses;
        setup.showStatus = [&](CurrencyStatus, const std::string& text) {
            statuses.push_back(text);
        };

        const CurrencyRefreshOutcome outcome = RefreshRates(setup);
        EXPECT_EQ(statuses, row.statuses);
        EXPECT_EQ(sources.paths(), row.asked);
        EXPECT_EQ(LoadCurrencyList(paths.dataFile("currency.dat")), row.list);
        EXPECT_EQ(outcome.result == CurrencyRefreshResult::Updated, row.list != stored);
        EXPECT_EQ(fs::exists(paths.dataFile("ZNCurrCode.xml")), row.copiesKept);
        // A download that failed leaves no partial file behind.
        EXPECT_FALSE(fs::exists(paths.dataFile("ZNrate.xml.part")));
    }
}

} // namespace
} // namespace zonara

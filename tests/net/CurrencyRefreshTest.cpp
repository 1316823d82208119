#include "net/CurrencyRefresh.h"
#include "net/CurrencyRefreshWorker.h"

#include <condition_variable>
#include <filesystem>
#include <future>
#include <map>
#include <mutex>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CurrencyTestDocuments.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyLastUpdate.h"
#include "support/TempDir.h"

namespace zonara {
namespace {

using test::readFile;
using test::TempDir;
using test::writeFile;

using test::ratesDocument;

const std::string goodRates = ratesDocument(R"(			<Cube currency='USD' rate='1.0844'/>
			<Cube currency='JPY' rate='160.5'/>
			<Cube currency='GBP' rate='n/a'/>
			<Cube currency='CHF' rate='0.9571'/>
			<Cube currency='XYZ' rate='2'/>
)");

// The lower-case "gbp" names GBP all the same.
const std::string codeList = test::codeListDocument({{"CHF", "Swiss Franc"},
                                                     {"EUR", "Euro"},
                                                     {"gbp", "Pound Sterling"},
                                                     {"JPY", "Yen"},
                                                     {"USD", "US Dollar"}});

constexpr std::string_view codesFirst = "http://codes.test/list.xml";
constexpr std::string_view ratesFirst = "https://rates.test/daily.xml";
constexpr std::string_view codesSecond = "http://update.test/CurrencyCodeList.xml";
constexpr std::string_view ratesSecond = "http://update.test/eurofxref-daily.xml";

const CurrencyList storedList = {u"1/2/2025 10:00 AM", {{u"Euro", u"EUR", -1.0f}}};

// A root folder with a stored list, and a downloader that serves documents by URL.
class RefreshRig {
  public:
    RefreshRig() {
        std::filesystem::create_directories(dir.path() / "Data");
        SaveCurrencyList(currencyFile(), storedList);
        setup.paths = Paths(dir.path());
        setup.sources = {std::string(codesFirst), std::string(ratesFirst), "update.test"};
        setup.clock = ClockSource::fixedAt(*parseIsoUtc("2025-03-14T08:05:00Z"));
        setup.utcOffsetMinutes = [](const SystemTime&) { return 60; };
        setup.ensureConnection = [this](std::stop_token) { return connected; };
        setup.download = [this](const std::string& url, const std::filesystem::path& to,
                                std::stop_token) -> std::string {
            calls.push_back(url);
            if (url == stopAt) {
                stopper.request_stop();
                return "ABORTED";
            }
            const auto served = documents.find(url);
            if (served == documents.end()) {
                return "HTTP_STATUS_NOT_FOUND";
            }
            writeFile(to, served->second);
            return {};
        };
        setup.showStatus = [this](CurrencyStatus, const std::string& text) {
            statuses.push_back(text);
        };
        documents = {{std::string(codesFirst), codeList},
                     {std::string(ratesFirst), goodRates},
                     {std::string(codesSecond), codeList},
                     {std::string(ratesSecond), goodRates}};
    }

    CurrencyRefreshOutcome run() { return RefreshRates(setup, stopper.get_token()); }
    std::filesystem::path currencyFile() const { return dir.path() / "Data" / "currency.dat"; }
    bool copyExists(std::string_view name) const {
        return std::filesystem::exists(dir.path() / "Data" / name);
    }

    TempDir dir;
    CurrencyRefreshSetup setup;
    std::map<std::string, std::string> documents;
    bool connected = true;
    std::string stopAt;
    std::stop_source stopper;
    std::vector<std::string> calls;
    std::vector<std::string> statuses;
};

TEST(CurrencyRefreshTest, JoinsTheRatesWithTheirNamesAndStoresThem) {
    RefreshRig rig;
    const CurrencyRefreshOutcome outcome = rig.run();
    ASSERT_EQ(outcome.result, CurrencyRefreshResult::Updated);
    EXPECT_TRUE(outcome.saved);
    // Sorted by name; a code the code list lacks keeps an empty name; the
    // code list's lower-case "gbp" names GBP; a rate that is no number is 0.
    const CurrencyList expected = {u"3/14/2025 9:05 AM",
                                   {
                                       {u"", u"XYZ", 2.0f},
                                       {u"Euro", u"EUR", -1.0f},
                                       {u"Pound Sterling", u"GBP", 0.0f},
                                       {u"Swiss Franc", u"CHF", 0.9571f},
                                       {u"US Dollar", u"USD", 1.0844f},
                                       {u"Yen", u"JPY", 160.5f},
                                   }};
    EXPECT_EQ(outcome.list, expected);
    EXPECT_EQ(LoadCurrencyList(rig.currencyFile()), expected);
}

TEST(CurrencyRefreshTest, EachDocumentComesFromItsFirstSourceElseTheUpdateHost) {
    const std::string dial = "Dial Connection", codes = "Download Currency Code",
                      rates = "Download Rates", rebuild = "Rebuilding Data",
                      done = "Last Update : 3/14/2025 9:05 AM";
    const std::string c1(codesFirst), c2(codesSecond), r1(ratesFirst), r2(ratesSecond);
    struct Case {
        const char* what;
        std::set<std::string> down;
        std::string ratesServed; // replaces the good rates on both sources when set
        std::string updateHost;
        bool connected;
        CurrencyRefreshResult result;
        std::vector<std::string> calls;
        std::vector<std::string> statuses;
        bool copiesKept;
    };
    const Case cases[] = {
        {"both first sources up",
         {},
         "",
         "update.test",
         true,
         CurrencyRefreshResult::Updated,
         {c1, r1},
         {dial, codes, rates, rebuild, done},
         false},
        {"code list's publisher down",
         {c1},
         "",
         "update.test",
         true,
         CurrencyRefreshResult::Updated,
         {c1, c2, r1},
         {dial, codes, rates, rebuild, done},
         false},
        {"central bank down",
         {r1},
         "",
         "update.test",
         true,
         CurrencyRefreshResult::Updated,
         {c1, r1, r2},
         {dial, codes, rates, rebuild, done},
         false},
        {"code list nowhere",
         {c1, c2},
         "",
         "update.test",
         true,
         CurrencyRefreshResult::DownloadFailed,
         {c1, c2},
         {dial, codes, "Download Failed"},
         true},
        {"rates nowhere",
         {r1, r2},
         "",
         "update.test",
         true,
         CurrencyRefreshResult::DownloadFailed,
         {c1, r1, r2},
         {dial, codes, rates, "Download Failed"},
         true},
        {"no update host: no second source",
         {c1},
         "",
         "",
         true,
         CurrencyRefreshResult::DownloadFailed,
         {c1},
         {dial, codes, "Download Failed"},
         true},
        {"rates that do not parse",
         {},
         "<gesmes:Envelope><Cube>",
         "update.test",
         true,
         CurrencyRefreshResult::LoadDataFailed,
         {c1, r1},
         {dial, codes, rates, rebuild, "Load Data Failed"},
         true},
        {"rates without a currency",
         {},
         ratesDocument(""),
         "update.test",
         true,
         CurrencyRefreshResult::LoadDataFailed,
         {c1, r1},
         {dial, codes, rates, rebuild, "Load Data Failed"},
         true},
        {"no rate is a number",
         {},
         ratesDocument("<Cube currency='USD' rate='-'/><Cube currency='JPY' rate=''/>"),
         "update.test",
         true,
         CurrencyRefreshResult::LoadDataFailed,
         {c1, r1},
         {dial, codes, rates, rebuild, "Load Data Failed"},
         true},
        {"no connection",
         {},
         "",
         "update.test",
         false,
         CurrencyRefreshResult::UnableToConnect,
         {},
         {dial, "Unable to Connect"},
         false},
    };
    for (const Case& c : cases) {
        RefreshRig rig;
        for (const std::string& url : c.down) {
            rig.documents.erase(url);
        }
        if (!c.ratesServed.empty()) {
            rig.documents[r1] = rig.documents[r2] = c.ratesServed;
        }
        rig.setup.sources.updateHost = c.updateHost;
        rig.connected = c.connected;
        // Copies left by an earlier refresh that failed.
        writeFile(rig.dir.path() / "Data" / "ZNCurrCode.xml", codeList);
        writeFile(rig.dir.path() / "Data" / "ZNrate.xml", goodRates);

        const CurrencyRefreshOutcome outcome = rig.run();
        EXPECT_EQ(outcome.result, c.result) << c.what;
        EXPECT_EQ(rig.calls, c.calls) << c.what;
        EXPECT_EQ(rig.statuses, c.statuses) << c.what;
        EXPECT_EQ(rig.copyExists("ZNCurrCode.xml"), c.copiesKept) << c.what;
        EXPECT_EQ(rig.copyExists("ZNrate.xml"), c.copiesKept) << c.what;
        if (c.result != CurrencyRefreshResult::Updated) {
            EXPECT_EQ(LoadCurrencyList(rig.currencyFile()), storedList) << c.what;
            EXPECT_TRUE(outcome.list.entries.empty()) << c.what;
        } else {
            EXPECT_EQ(LoadCurrencyList(rig.currencyFile()), outcome.list) << c.what;
        }
    }
}

TEST(CurrencyRefreshTest, LastUpdateIsTheLocalDateAndTime) {
    struct Case {
        const char* utc;
        std::int32_t offsetMinutes;
        const char* text;
    };
    const Case cases[] = {
        {"2025-03-14T08:05:00Z", 60, "3/14/2025 9:05 AM"},
        {"2025-03-14T00:30:00Z", -60, "3/13/2025 11:30 PM"},
        {"2024-12-31T23:30:00Z", 60, "1/1/2025 12:30 AM"},
        {"2024-02-28T20:00:00Z", 345, "2/29/2024 1:45 AM"},
        {"2025-07-01T12:00:00Z", 0, "7/1/2025 12:00 PM"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(formatLastUpdate(*parseIsoUtc(c.utc), c.offsetMinutes), c.text) << c.utc;
    }
}

TEST(CurrencyRefreshTest, StoppingEndsTheRefreshWithoutTouchingTheStoredList) {
    for (const std::string_view stopAt : {codesFirst, ratesFirst}) {
        RefreshRig rig;
        rig.stopAt = stopAt;
        const CurrencyRefreshOutcome outcome = rig.run();
        EXPECT_EQ(outcome.result, CurrencyRefreshResult::Cancelled) << stopAt;
        // Neither the second source nor a later step is tried, and no failure is shown.
        EXPECT_EQ(rig.calls.back(), stopAt);
        EXPECT_NE(rig.statuses.back(), "Download Failed");
        EXPECT_EQ(LoadCurrencyList(rig.currencyFile()), storedList);
        EXPECT_FALSE(rig.copyExists("ZNCurrCode.xml")) << stopAt;
        EXPECT_FALSE(rig.copyExists("ZNrate.xml")) << stopAt;
    }
}

TEST(CurrencyRefreshTest, WorkerRunsOneRefreshAndStopsItCleanly) {
    RefreshRig rig;
    std::promise<void> downloading;
    // The rates' download hangs until it is told to stop, as a stalled transfer would.
    const CurrencyDownload serve = rig.setup.download;
    rig.setup.download = [&](const std::string& url, const std::filesystem::path& to,
                             std::stop_token stop) -> std::string {
        if (url != ratesFirst) {
            return serve(url, to, stop);
        }
        downloading.set_value();
        std::mutex mutex;
        std::condition_variable_any stopped;
        std::unique_lock lock(mutex);
        stopped.wait(lock, stop, [] { return false; });
        return "ABORTED";
    };
    std::promise<CurrencyRefreshOutcome> ended;
    CurrencyRefreshWorker worker;
    ASSERT_TRUE(worker.start(
        rig.setup, [&](const CurrencyRefreshOutcome& outcome) { ended.set_value(outcome); }));
    downloading.get_future().wait();
    EXPECT_TRUE(worker.running());
    EXPECT_FALSE(worker.start(rig.setup, nullptr)) << "a second refresh while one runs";
    worker.stop();
    EXPECT_FALSE(worker.running());
    EXPECT_EQ(ended.get_future().get().result, CurrencyRefreshResult::Cancelled);
    EXPECT_EQ(LoadCurrencyList(rig.currencyFile()), storedList);

    // Once ended, the worker takes the next refresh, which runs to its end.
    rig.setup.download = serve;
    std::promise<CurrencyRefreshOutcome> next;
    ASSERT_TRUE(worker.start(
        rig.setup, [&](const CurrencyRefreshOutcome& outcome) { next.set_value(outcome); }));
    EXPECT_EQ(next.get_future().get().result, CurrencyRefreshResult::Updated);
    worker.stop();
    EXPECT_EQ(LoadCurrencyList(rig.currencyFile()).entries.size(), 6u);
}

} // namespace
} // namespace zonara

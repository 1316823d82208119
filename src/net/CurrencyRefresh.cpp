#include "net/CurrencyRefresh.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "clocks/CXMLParser.h"
#include "core/Text.h"
#include "net/CurrencyDocuments.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyLastUpdate.h"

namespace zonara {

namespace {

class Refresh {
  public:
    Refresh(const CurrencyRefreshSetup& setup, std::stop_token stop)
        : setup(setup), stop(std::move(stop)),
          codesCopy(setup.paths.dataFile(currencyCodesCopyName)),
          ratesCopy(setup.paths.dataFile(currencyRatesCopyName)) {}

    CurrencyRefreshOutcome run() {
        show(CurrencyStatus::DialConnection);
        const bool connected = setup.ensureConnection && setup.ensureConnection(stop);
        if (stop.stop_requested()) {
            return cancelled();
        }
        if (!connected) {
            removeCopies();
            return failed(CurrencyStatus::UnableToConnect, CurrencyRefreshResult::UnableToConnect);
        }

        show(CurrencyStatus::DownloadCurrencyCode);
        const bool codesFetched =
            fetch(setup.sources.codesUrl, setup.sources.codesFallbackUrl(), codesCopy);
        if (stop.stop_requested()) {
            return cancelled();
        }
        if (!codesFetched) {
            return failed(CurrencyStatus::DownloadFailed, CurrencyRefreshResult::DownloadFailed);
        }

        show(CurrencyStatus::DownloadRates);
        const bool ratesFetched =
            fetch(setup.sources.ratesUrl, setup.sources.ratesFallbackUrl(), ratesCopy);
        if (stop.stop_requested()) {
            return cancelled();
        }
        if (!ratesFetched) {
            return failed(CurrencyStatus::DownloadFailed, CurrencyRefreshResult::DownloadFailed);
        }

        show(CurrencyStatus::RebuildingData);
        CurrencyList list;
        if (!rebuild(list.entries)) {
            return failed(CurrencyStatus::LoadDataFailed, CurrencyRefreshResult::LoadDataFailed);
        }
        if (stop.stop_requested()) {
            return cancelled();
        }

        const SystemTime now = setup.clock.utcNow();
        const std::int32_t offset = setup.utcOffsetMinutes ? setup.utcOffsetMinutes(now) : 0;
        const std::string dateText = formatLastUpdate(now, offset, *setup.locale);
        list.lastUpdate = toUtf16(dateText);

        CurrencyRefreshOutcome outcome;
        outcome.saved = SaveCurrencyList(setup.paths.dataFile(currencyFileName), list);
        outcome.result = CurrencyRefreshResult::Updated;
        outcome.list = std::move(list);
        showText(CurrencyStatus::LastUpdate, lastUpdateLine(dateText));
        removeCopies();
        return outcome;
    }

  private:
    void show(CurrencyStatus id) { showText(id, std::string(currencyStatusText(id))); }

    void showText(CurrencyStatus id, const std::string& text) {
        if (setup.showStatus) {
            setup.showStatus(id, text);
        }
    }

    CurrencyRefreshOutcome failed(CurrencyStatus id, CurrencyRefreshResult result) {
        show(id);
        CurrencyRefreshOutcome outcome;
        outcome.result = result;
        return outcome;
    }

    CurrencyRefreshOutcome cancelled() {
        removeCopies();
        return {};
    }

    // The first source, then the second when there is one.
    bool fetch(const std::string& first, const std::string& second,
               const std::filesystem::path& destination) {
        if (!setup.download) {
            return false;
        }
        if (!first.empty() && setup.download(first, destination, stop).empty()) {
            return true;
        }
        if (stop.stop_requested() || second.empty()) {
            return false;
        }
        return setup.download(second, destination, stop).empty();
    }

    // Reads both copies into entries named from the code list, with the euro
    // appended and sorted by name. False when a document does not load, or
    // when the rates give no usable currency: storing such a list would throw
    // away the rates the user has.
    bool rebuild(std::vector<CurrencyEntry>& entries) {
        CXMLParser codeList;
        CXMLParser rates;
        codeList.Create();
        rates.Create();
        if (!found(codeList.Load(codesCopy)) || !found(rates.Load(ratesCopy))) {
            return false;
        }
        entries = readRates(rates);
        nameFromCodeList(codeList, entries);
        const bool anyRate = std::any_of(entries.begin(), entries.end(),
                                         [](const CurrencyEntry& e) { return e.rate != 0.0f; });
        if (!anyRate) {
            return false;
        }
        entries.push_back({u"Euro", u"EUR", euroRateMarker});
        std::stable_sort(
            entries.begin(), entries.end(),
            [](const CurrencyEntry& a, const CurrencyEntry& b) { return a.name < b.name; });
        return true;
    }

    void removeCopies() {
        std::error_code ignored;
        std::filesystem::remove(codesCopy, ignored);
        std::filesystem::remove(ratesCopy, ignored);
    }

    const CurrencyRefreshSetup& setup;
    std::stop_token stop;
    std::filesystem::path codesCopy;
    std::filesystem::path ratesCopy;
};

} // namespace

CurrencyRefreshOutcome RefreshRates(const CurrencyRefreshSetup& setup, std::stop_token stop) {
    return Refresh(setup, std::move(stop)).run();
}

} // namespace zonara

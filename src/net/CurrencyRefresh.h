#pragma once
// Refreshing the currency list: download the code list and the rates, join them, store them.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>
#include <string_view>

#include "core/ClockSource.h"
#include "core/LocaleFormat.h"
#include "core/Paths.h"
#include "net/CurrencyEntry.h"
#include "net/CurrencySources.h"
#include "net/CurrencyStatus.h"

namespace zonara {

// Fetches one URL into one file; an empty text means success, anything else
// is the downloader's error code. It should give up soon after a stop request.
using CurrencyDownload = std::function<std::string(
    const std::string& url, const std::filesystem::path& destination, std::stop_token stop)>;

struct CurrencyRefreshSetup {
    Paths paths;
    CurrencySources sources;
    ClockSource clock = ClockSource::system();
    // Minutes east of UTC for the last-update text, asked at the refresh's instant.
    std::function<std::int32_t(const SystemTime& utc)> utcOffsetMinutes;
    const LocaleFormat* locale = &englishLocale();
    // True when the network can be reached.
    std::function<bool(std::stop_token stop)> ensureConnection;
    CurrencyDownload download;
    // Each status text as it is shown; called on the refreshing thread.
    std::function<void(CurrencyStatus id, const std::string& text)> showStatus;
};

enum class CurrencyRefreshResult {
    Updated,
    UnableToConnect,
    DownloadFailed,
    LoadDataFailed,
    Cancelled,
};

struct CurrencyRefreshOutcome {
    CurrencyRefreshResult result = CurrencyRefreshResult::Cancelled;
    CurrencyList list;  // the new list when Updated, else empty
    bool saved = false; // Updated and Data/currency.dat written
};

// Shows "Dial Connection", "Download Currency Code", "Download Rates",
// "Rebuilding Data" and finally "Last Update : <text>", or stops at the first
// failure with its text. Only a successful refresh writes Data/currency.dat.
// The local copies in Data/ are removed after success, after "Unable to
// Connect" and on cancelling, and kept after the other failures. A refresh
// whose rates give no currency, or none with a rate other than 0, fails with
// "Load Data Failed". A stop request ends it without a status text.
CurrencyRefreshOutcome RefreshRates(const CurrencyRefreshSetup& setup, std::stop_token stop = {});

} // namespace zonara

#include "net/CurrencyTransfer.h"

#include <optional>
#include <string>

#include "net/ConnectionCheck.h"
#include "net/CurrencyLastUpdate.h"
#include "net/FetchFile.h"
#include "net/TransferTarget.h"

namespace zonara {

CurrencySources currencySources(const Config& config) {
    CurrencySources sources;
    sources.codesUrl = config.currency.codes;
    sources.ratesUrl = config.currency.rates;
    sources.updateHost = config.update.primary;
    return sources;
}

CurrencyDownload currencyDownload(const NetworkConfig& network) {
    return [network](const std::string& url, const std::filesystem::path& destination,
                     std::stop_token stop) -> std::string {
        const FetchResult result = fetchFile(network, url, destination, nullptr, std::move(stop));
        if (result.ok) {
            return {};
        }
        const std::string_view code = errorCode(result.error);
        // An abort keeps whatever code the download had, which may be none.
        return code.empty() ? std::string("ABORTED") : std::string(code);
    };
}

std::function<bool(std::stop_token)> currencyConnection(const Config& config) {
    std::string codesHost;
    if (const std::optional<TransferTarget> target = crackUrl(config.currency.codes)) {
        codesHost = target->host;
    }
    return
        [network = config.network, codesHost, updateHost = config.update.primary](std::stop_token) {
            ConnectionSlot slot;
            return EnsureInternetConnection(slot, network, codesHost) ||
                   EnsureInternetConnection(slot, network, updateHost);
        };
}

CurrencyRefreshSetup currencyRefreshSetup(const Paths& paths, const Config& config,
                                          const ClockSource& clock) {
    CurrencyRefreshSetup setup;
    setup.paths = paths;
    setup.sources = currencySources(config);
    setup.clock = clock;
    setup.utcOffsetMinutes = systemUtcOffsetMinutes;
    setup.ensureConnection = currencyConnection(config);
    setup.download = currencyDownload(config.network);
    return setup;
}

} // namespace zonara

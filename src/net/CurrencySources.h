#pragma once
// Where a rates refresh fetches the currency code list and the euro reference rates.

#include <filesystem>
#include <string>
#include <string_view>

#include "net/Config.h"

namespace zonara {

// Paths of the same documents on the update host.
inline constexpr std::string_view updateHostCodesPath = "/CurrencyCodeList.xml";
inline constexpr std::string_view updateHostRatesPath = "/eurofxref-daily.xml";

// The local copies, kept in Data/ between download and reading.
inline constexpr std::string_view currencyCodesCopyName = "ZNCurrCode.xml";
inline constexpr std::string_view currencyRatesCopyName = "ZNrate.xml";

struct CurrencySources {
    // By default the code list's publisher and the central bank's daily file.
    std::string codesUrl = CurrencyConfig{}.codes; // [currency] codes
    std::string ratesUrl = CurrencyConfig{}.rates; // [currency] rates
    std::string updateHost;                        // [update] primary; empty: none

    // The second sources, on the update host; empty when no host is set.
    std::string codesFallbackUrl() const { return onUpdateHost(updateHostCodesPath); }
    std::string ratesFallbackUrl() const { return onUpdateHost(updateHostRatesPath); }

  private:
    std::string onUpdateHost(std::string_view path) const {
        return updateHost.empty() ? std::string() : "http://" + updateHost + std::string(path);
    }
};

} // namespace zonara

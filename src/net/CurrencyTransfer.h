#pragma once
// A rates refresh over the transfer engine, with its sources and network from zonara.ini.

#include <functional>
#include <stop_token>

#include "core/ClockSource.h"
#include "core/Paths.h"
#include "net/Config.h"
#include "net/CurrencyRefresh.h"
#include "net/CurrencySources.h"

namespace zonara {

// [currency] codes and rates as the first sources, [update] primary for the second.
CurrencySources currencySources(const Config& config);

// Downloads through the file downloader, without credentials or owner, into a
// file that appears only when whole; the error is the downloader's code.
CurrencyDownload currencyDownload(const NetworkConfig& network);

// The connection check before a refresh: a way to the code list's first
// source, else to the update host.
std::function<bool(std::stop_token)> currencyConnection(const Config& config);

// Everything a refresh needs but the status callback; the last-update text
// takes the machine's own offset from UTC.
CurrencyRefreshSetup currencyRefreshSetup(const Paths& paths, const Config& config,
                                          const ClockSource& clock);

} // namespace zonara

#pragma once
// The texts a rates refresh shows in the converter's status line, by string id.

#include <array>
#include <string>
#include <string_view>

namespace zonara {

enum class CurrencyStatus {
    DialConnection = 40119,
    UnableToConnect = 40088,
    DownloadCurrencyCode = 40159,
    DownloadRates = 40160,
    DownloadFailed = 40161,
    RebuildingData = 40162,
    LoadDataFailed = 40163,
    LastUpdate = 40158,
};

struct CurrencyStatusText {
    CurrencyStatus id;
    std::string_view text;
};

inline constexpr std::array<CurrencyStatusText, 8> currencyStatusTexts = {{
    {CurrencyStatus::DialConnection, "Dial Connection"},
    {CurrencyStatus::UnableToConnect, "Unable to Connect"},
    {CurrencyStatus::DownloadCurrencyCode, "Download Currency Code"},
    {CurrencyStatus::DownloadRates, "Download Rates"},
    {CurrencyStatus::DownloadFailed, "Download Failed"},
    {CurrencyStatus::RebuildingData, "Rebuilding Data"},
    {CurrencyStatus::LoadDataFailed, "Load Data Failed"},
    {CurrencyStatus::LastUpdate, "Last Update"},
}};

constexpr std::string_view currencyStatusText(CurrencyStatus id) {
    for (const CurrencyStatusText& entry : currencyStatusTexts) {
        if (entry.id == id) {
            return entry.text;
        }
    }
    return {};
}

// "Last Update : <date and time>".
inline std::string lastUpdateLine(std::string_view dateText) {
    std::string line(currencyStatusText(CurrencyStatus::LastUpdate));
    line += " : ";
    line += dateText;
    return line;
}

} // namespace zonara

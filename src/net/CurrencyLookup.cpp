#include "net/CurrencyLookup.h"

#include "core/Text.h"
#include "net/CurrencyConversion.h"

namespace zonara {

std::u16string currencyItemText(const CurrencyEntry& entry) {
    return entry.name + u" (" + entry.code + u")";
}

std::vector<std::size_t> findCurrencies(const CurrencyList& list, std::string_view typed) {
    const std::string key = asciiLower(typed);
    const auto matching = [&](auto text) {
        std::vector<std::size_t> hits;
        for (std::size_t i = 0; i < list.entries.size(); ++i) {
            if (asciiLower(toUtf8(text(list.entries[i]))) == key) {
                hits.push_back(i);
            }
        }
        return hits;
    };
    if (key.empty()) {
        return {};
    }
    std::vector<std::size_t> hits = matching([](const CurrencyEntry& e) { return e.code; });
    if (hits.empty()) {
        hits = matching([](const CurrencyEntry& e) { return e.name; });
    }
    if (hits.empty()) {
        hits = matching([](const CurrencyEntry& e) { return currencyItemText(e); });
    }
    return hits;
}

std::string convertCurrencyText(std::string_view amountText, const CurrencyEntry& from,
                                const CurrencyEntry& to) {
    return formatCurrencyAmount(
        ConvertCurrency(readCurrencyNumber(amountText), from.rate, to.rate));
}

} // namespace zonara

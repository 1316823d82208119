#include "net/CurrencyConverter.h"

#include "core/Text.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyLookup.h"
#include "net/CurrencyStatus.h"

namespace zonara {

void CurrencyConverter::open() {
    currencies = LoadCurrencyList(paths.dataFile(currencyFileName));
    const CurrencyChoice choice = LoadCurrencyChoice(paths.dataFile(currencyChoiceFileName));
    select(choice.from, choice.to);
}

void CurrencyConverter::applyRefresh(CurrencyList refreshed) {
    const std::u16string fromText = itemAt(from);
    const std::u16string toText = itemAt(to);
    currencies = std::move(refreshed);
    select(fromText, toText);
}

bool CurrencyConverter::close() const {
    return SaveCurrencyChoice(paths.dataFile(currencyChoiceFileName), {itemAt(from), itemAt(to)});
}

std::vector<std::u16string> CurrencyConverter::itemTexts() const {
    std::vector<std::u16string> items;
    items.reserve(currencies.entries.size());
    for (const CurrencyEntry& entry : currencies.entries) {
        items.push_back(currencyItemText(entry));
    }
    return items;
}

std::optional<std::string> CurrencyConverter::convert(std::string_view amountText) const {
    if (from < 0 || to < 0) {
        return std::nullopt;
    }
    return convertCurrencyText(amountText, currencies.entries[std::size_t(from)],
                               currencies.entries[std::size_t(to)]);
}

std::string CurrencyConverter::statusLine() const {
    if (!hasCurrencies()) {
        return std::string(noRatesDialogHint);
    }
    return lastUpdateLine(toUtf8(currencies.lastUpdate));
}

int CurrencyConverter::validIndex(int index) const {
    return index >= 0 && std::size_t(index) < currencies.entries.size() ? index : -1;
}

// Item texts are matched whole and without regard to case, as a list box
// finds its items.
int CurrencyConverter::indexOfItem(std::u16string_view text) const {
    if (text.empty()) {
        return -1;
    }
    const std::string key = asciiLower(toUtf8(text));
    for (std::size_t i = 0; i < currencies.entries.size(); ++i) {
        if (asciiLower(toUtf8(currencyItemText(currencies.entries[i]))) == key) {
            return int(i);
        }
    }
    return -1;
}

int CurrencyConverter::indexOfCode(std::u16string_view code) const {
    for (std::size_t i = 0; i < currencies.entries.size(); ++i) {
        if (currencies.entries[i].code == code) {
            return int(i);
        }
    }
    return -1;
}

std::u16string CurrencyConverter::itemAt(int index) const {
    return index >= 0 ? currencyItemText(currencies.entries[std::size_t(index)]) : u"";
}

// A text that names no item falls back to the euro for "from" and the US
// dollar for "to", then to the first item.
void CurrencyConverter::select(std::u16string_view fromText, std::u16string_view toText) {
    const auto choose = [this](std::u16string_view text, std::u16string_view fallbackCode) {
        int index = indexOfItem(text);
        if (index < 0) {
            index = indexOfCode(fallbackCode);
        }
        return index < 0 ? validIndex(0) : index;
    };
    from = choose(fromText, u"EUR");
    to = choose(toText, u"USD");
}

} // namespace zonara

#pragma once
// The currency converter dialog's state and actions, without its widgets.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Paths.h"
#include "net/CurrencyEntry.h"

namespace zonara {

// What the converter says instead of a last-update line while it has no currencies.
inline constexpr std::string_view noRatesDialogHint = "No rates yet: choose Update in the Menu.";
inline constexpr std::string_view noRatesCommandHint =
    "No currency rates stored yet. Run 'zonara rates --refresh' to download the euro "
    "reference rates.";

class CurrencyConverter {
  public:
    explicit CurrencyConverter(Paths paths) : paths(std::move(paths)) {}

    // Reads Data/currency.dat (creating it empty when missing) and selects
    // the pair kept in Data/scurrency.dat, else the euro and the US dollar.
    void open();
    // After a successful refresh: the new list, keeping the chosen pair by its texts.
    void applyRefresh(CurrencyList refreshed);
    // On closing: keeps the chosen pair's texts in Data/scurrency.dat.
    bool close() const;

    const CurrencyList& list() const { return currencies; }
    bool hasCurrencies() const { return !currencies.entries.empty(); }
    // One "name (code)" item per currency, in list order, for both lists.
    std::vector<std::u16string> itemTexts() const;

    int fromIndex() const { return from; } // -1: nothing chosen
    int toIndex() const { return to; }
    void selectFrom(int index) { from = validIndex(index); }
    void selectTo(int index) { to = validIndex(index); }

    // "CON": the amount text converted from the chosen "from" currency to the
    // chosen "to" currency, as "%.4f"; nothing while either is not chosen.
    std::optional<std::string> convert(std::string_view amountText) const;

    // The status line while no refresh runs: "Last Update : <text>", or how to
    // get rates while there are none.
    std::string statusLine() const;

  private:
    int validIndex(int index) const;
    int indexOfItem(std::u16string_view text) const;
    int indexOfCode(std::u16string_view code) const;
    std::u16string itemAt(int index) const;
    void select(std::u16string_view fromText, std::u16string_view toText);

    Paths paths;
    CurrencyList currencies;
    int from = -1;
    int to = -1;
};

} // namespace zonara

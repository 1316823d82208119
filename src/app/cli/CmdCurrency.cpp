#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "cities/SearchKey.h"
#include "core/Text.h"
#include "net/CurrencyConverter.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyLookup.h"

namespace zonara {

namespace {

// Codes, names and item texts without regard to case; then names without
// regard to accents and punctuation ("bolivar soberano").
std::vector<std::size_t> currenciesNamed(const CurrencyList& list, const std::string& typed) {
    std::vector<std::size_t> hits = findCurrencies(list, typed);
    const std::string key = searchKey(typed);
    if (!hits.empty() || key.empty()) {
        return hits;
    }
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        if (searchKey(toUtf8(list.entries[i].name)) == key) {
            hits.push_back(i);
        }
    }
    return hits;
}

Expected<std::size_t> chooseCurrency(const CurrencyList& list, const std::string& typed) {
    const std::vector<std::size_t> hits = currenciesNamed(list, typed);
    if (hits.empty()) {
        return fail("no currency '" + typed + "'; 'zonara rates' lists them");
    }
    if (hits.size() > 1) {
        std::string names;
        for (const std::size_t hit : hits) {
            names += (names.empty() ? "" : ", ") + toUtf8(currencyItemText(list.entries[hit]));
        }
        return fail("'" + typed + "' could be " + names + "; give the code");
    }
    return hits.front();
}

struct Pair {
    std::string from;
    std::string to;
};

// FROM and TO as two words, or names of several words that split only one way
// into two currencies ("us dollar pound sterling").
Expected<Pair> splitPair(const CurrencyList& list, const std::vector<std::string>& words) {
    if (words.size() == 2) {
        return Pair{words[0], words[1]};
    }
    std::optional<Pair> found;
    for (std::size_t cut = 1; cut < words.size(); ++cut) {
        const Pair pair{joinedWords({words.begin(), words.begin() + std::ptrdiff_t(cut)}),
                        joinedWords({words.begin() + std::ptrdiff_t(cut), words.end()})};
        if (currenciesNamed(list, pair.from).empty() || currenciesNamed(list, pair.to).empty()) {
            continue;
        }
        if (found) {
            return fail("which two currencies? quote names of several words");
        }
        found = pair;
    }
    if (!found) {
        return fail("which two currencies? give codes ('eur usd') or quote names of several words");
    }
    return *found;
}

bool isAmount(const std::string& word) {
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size();
}

Outcome runCurrency(CommandContext& ctx, Args& args) {
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (words->size() < 3) {
        return fail("give an amount and two currencies: 'zonara currency 100 eur usd'");
    }
    const std::string& amount = words->front();
    if (!isAmount(amount)) {
        return fail("'" + amount + "' is not an amount; write it like 100 or 12.5");
    }
    const CurrencyList list = LoadCurrencyList(ctx.paths.dataFile(currencyFileName));
    if (list.entries.empty()) {
        return fail(std::string(noRatesCommandHint));
    }
    const Expected<Pair> pair = splitPair(list, {words->begin() + 1, words->end()});
    if (!pair) {
        return pair.error();
    }
    const Expected<std::size_t> from = chooseCurrency(list, pair->from);
    if (!from) {
        return from.error();
    }
    const Expected<std::size_t> to = chooseCurrency(list, pair->to);
    if (!to) {
        return to.error();
    }
    const CurrencyEntry& source = list.entries[*from];
    const CurrencyEntry& target = list.entries[*to];
    for (const CurrencyEntry* side : {&source, &target}) {
        if (side->rate == 0.0f) {
            ctx.warn("the rate of " + toUtf8(side->code) +
                     " was not published as a number and counts as 0");
        }
    }
    const std::string result = convertCurrencyText(amount, source, target);
    if (ctx.tsv()) {
        ctx.out << amount << "\t" << toUtf8(source.code) << "\t" << toUtf8(target.code) << "\t"
                << result << "\n";
    } else {
        ctx.out << amount << " " << toUtf8(source.code) << " = " << result << " "
                << toUtf8(target.code) << "\n";
    }
    return {};
}

} // namespace

extern const Command currencyConversionCommand{
    .name = "currency",
    .usage = "AMOUNT FROM TO",
    .summary = "convert an amount between two currencies",
    .help = "Converts AMOUNT from one currency to another with the stored euro reference\n"
            "rates ('zonara rates' lists them, 'zonara rates --refresh' gets new ones),\n"
            "in single precision as the converter does, shown with four decimals.\n"
            "FROM and TO are codes or names without regard to case or accents ('usd',\n"
            "'pound sterling'); quote a name of several words when the split is not\n"
            "clear.\n"
            "With --tsv: amount, from code, to code, result.\n",
    .run = runCurrency,
};

} // namespace zonara

#include <ostream>
#include <string>
#include <system_error>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "core/Text.h"
#include "net/Config.h"
#include "net/CurrencyConversion.h"
#include "net/CurrencyConverter.h"
#include "net/CurrencyFiles.h"
#include "net/CurrencyTransfer.h"

namespace zonara {

namespace {

// Refreshes the stored list, each status text on its own line: on stdout for
// people, on stderr when stdout is a table for scripts.
Outcome refresh(CommandContext& ctx) {
    CurrencyRefreshSetup setup = currencyRefreshSetup(ctx.paths, ctx.config(), ctx.clock);
    std::ostream& said = ctx.tsv() ? ctx.err : ctx.out;
    setup.showStatus = [&said](CurrencyStatus, const std::string& text) {
        said << text << "\n" << std::flush;
    };
    std::error_code ignored; // a Data/ that cannot be made fails the first download
    std::filesystem::create_directories(ctx.paths.dataDir(), ignored);
    if (RefreshRates(setup).result != CurrencyRefreshResult::Updated) {
        return fail("the rates were not refreshed; the stored ones are kept");
    }
    if (!ctx.tsv()) {
        ctx.out << "\n";
    }
    return {};
}

Outcome runRates(CommandContext& ctx, Args& args) {
    const bool refreshFirst = args.flag("--refresh");
    if (Outcome done = expectNoWords(args); !done.ok()) {
        return done;
    }
    if (refreshFirst) {
        if (Outcome done = refresh(ctx); !done.ok()) {
            return done;
        }
    }
    const CurrencyList list = LoadCurrencyList(ctx.paths.dataFile(currencyFileName));
    if (list.entries.empty()) {
        return fail(std::string(noRatesCommandHint));
    }
    TablePrinter table({"Currency", "Code", "Per euro"});
    for (const CurrencyEntry& entry : list.entries) {
        // The euro's marker is no rate: one euro is one euro.
        const float rate = entry.rate == euroRateMarker ? 1.0f : entry.rate;
        table.add({toUtf8(entry.name), toUtf8(entry.code), formatCurrencyRate(rate)});
    }
    // A refresh has just shown the line as its last step.
    const std::string lastUpdate = lastUpdateLine(toUtf8(list.lastUpdate));
    if (!refreshFirst) {
        if (ctx.tsv()) {
            ctx.warn(lastUpdate);
        } else {
            ctx.out << lastUpdate << "\n\n";
        }
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command ratesCommand{
    .name = "rates",
    .usage = "[--refresh]",
    .summary = "the stored euro reference rates, or fresh ones",
    .help = "Lists the currencies of Data/currency.dat by name with their code and units\n"
            "per euro, after the date and time of their last update.\n"
            "--refresh first downloads the currency code list and the central bank's\n"
            "daily rates (the sources in zonara.ini, else the update host's copies),\n"
            "printing each step, and stores them; it fails (exit 1) leaving the stored\n"
            "rates as they were when a source cannot be reached or read.\n"
            "With --tsv: currency, code, units per euro; the last update and the steps\n"
            "go to stderr.\n",
    .run = runRates,
};

} // namespace zonara

#include <string>
#include <vector>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/TablePrinter.h"
#include "tools/CCalculator.h"

namespace zonara {

namespace {

Outcome runCalc(CommandContext& ctx, Args& args) {
    const bool trace = args.flag("--trace");
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (words->empty()) {
        return fail("no keys; name them as on the pad, for example: zonara calc 2 + 3 =");
    }
    // Every name is checked before a key is pressed, so a typo prints nothing
    // half-done.
    std::vector<int> keys;
    for (const std::string& word : *words) {
        const auto key = calculatorKeyByName(word);
        if (!key) {
            return fail("unknown key '" + word +
                        "'; the keys are 0-9 . + - x ÷ (or /) = C « (or back) MC MR M+ sqrt "
                        "1/x +/-");
        }
        keys.push_back(*key);
    }

    CCalculator calculator;
    TablePrinter steps({"Key", "Display"});
    for (std::size_t i = 0; i < keys.size(); ++i) {
        calculator.Key(keys[i]);
        steps.add({(*words)[i], calculator.DisplayText()});
    }
    if (trace) {
        steps.print(ctx.out, ctx.tsv());
    } else {
        ctx.out << calculator.DisplayText() << "\n";
    }
    return {};
}

} // namespace

extern const Command calcCommand{
    .name = "calc",
    .usage = "KEY... [--trace]",
    .summary = "press the converters' calculator keys and show the display",
    .help = "Presses the calculator's keys in order and prints the display text, as the\n"
            "unit converter's pad would show it. The keys: 0-9, '.', '+', '-', 'x',\n"
            "'÷' or '/', '=', 'C', '«' or 'back', 'MC', 'MR', 'M+', 'sqrt', '1/x',\n"
            "'+/-' (letters in any case). Operators chain as on the pad: the pending\n"
            "sum is carried out with the operator just pressed (2 + 3 x shows 6),\n"
            "and C keeps the pending operator. --trace prints the display after\n"
            "every key: key, display (with --tsv without the heading).\n",
    .run = runCalc,
    .needsRoot = false,
};

} // namespace zonara

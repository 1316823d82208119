#include <charconv>
#include <string>
#include <variant>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/TablePrinter.h"
#include "tools/MetricConverter.h"
#include "tools/UnitLookup.h"

namespace zonara {

namespace {

// The whole word as a number ("12", "-0.5", "1e3"); nothing for anything else.
std::optional<double> numberWord(const std::string& word) {
    double value = 0;
    const char* end = word.data() + word.size();
    const char* begin = word.data() + (word.starts_with('+') ? 1 : 0);
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end || begin == end)
        return std::nullopt;
    return value;
}

void listUnits(CommandContext& ctx) {
    const UnitTables tables;
    TablePrinter table({"Category", "Unit", "Suffix"});
    for (const CategoryTable& entry : categoryTables(tables))
        for (int unit = 0; unit < entry.table->UnitCount(); ++unit)
            table.add({std::string(categoryName(entry.category)),
                       std::string(entry.table->UnitName(unit)),
                       std::string(entry.table->UnitSuffix(unit))});
    table.print(ctx.out, ctx.tsv());
}

Outcome runConvert(CommandContext& ctx, Args& args) {
    const bool list = args.flag("--list");
    const std::optional<std::string> category = args.option("--category");
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (list) {
        if (!words->empty() || category) {
            return fail("--list takes nothing else");
        }
        listUnits(ctx);
        return {};
    }
    if (words->size() != 3) {
        return fail("give VALUE FROM TO, for example: zonara convert 212 F C");
    }
    const std::optional<double> value = numberWord((*words)[0]);
    if (!value) {
        return fail("'" + (*words)[0] + "' is not a number");
    }

    const UnitTables tables;
    const ConversionLookup found =
        findConversion(categoryTables(tables), (*words)[1], (*words)[2],
                       category ? std::optional<std::string_view>(*category) : std::nullopt);
    if (const auto* problem = std::get_if<LookupError>(&found)) {
        return fail(problem->message());
    }
    const auto& pair = std::get<ConversionPair>(found);
    MetricConverter converter;
    converter.selectCategory(pair.category);
    converter.setFromUnit(pair.from);
    converter.setToUnit(pair.to);
    // As if the number stood on the pad's display when CON was pressed.
    const ConvertOutcome outcome = converter.convertValue(*value);
    ctx.out << converter.displayText() << "\n";
    if (outcome == ConvertOutcome::CannotConvert) {
        const CTable& table = converter.table();
        return fail(std::string(categoryName(pair.category)) + " has no factor from " +
                    std::string(table.UnitName(pair.from)) + " to " +
                    std::string(table.UnitName(pair.to)));
    }
    return {};
}

} // namespace

extern const Command convertCommand{
    .name = "convert",
    .usage = "VALUE FROM TO [--category NAME] | --list",
    .summary = "convert a value between units, as the unit converter does",
    .help = "Converts VALUE from one unit to another with the unit converter's tables\n"
            "and prints the display as the converter shows it after CON: the value is\n"
            "taken in single precision and the result shown with up to 14 decimals\n"
            "(212 F C gives 100.00000762939453). A pair the tables cannot convert\n"
            "prints n\\a and exits with 1.\n"
            "A unit is named by its name or its suffix, with or without the part in\n"
            "brackets, in any case; 2 and 3 stand for ² and ³ and the degree sign may\n"
            "be left out (km, miles, m2, fl oz, C, \"US gallons\"). --category NAME\n"
            "chooses the table when both units are in several.\n"
            "--list prints every category with its units: category, unit, suffix.\n",
    .run = runConvert,
    .needsRoot = false,
};

} // namespace zonara

#include <charconv>
#include <ostream>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "cities/AirportList.h"
#include "cities/NewAirport.h"
#include "core/Text.h"

namespace zonara {

namespace {

std::string lineText(const AirportEntry& entry) {
    return toUtf8(comboLine(entry));
}

// The list as the window loads it; a damaged file is said once and read up
// to its damage, which the next change writes away.
Expected<AirportList> loadList(CommandContext& ctx) {
    AirportList list;
    const std::filesystem::path file = ctx.paths.dataFile(airportFileName);
    // The window always has its Data folder; a bare root gets one here.
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    switch (list.load(file)) {
    case AirportFileState::Whole:
    case AirportFileState::Created:
        break;
    case AirportFileState::Damaged:
        ctx.warn(file.string() + " is damaged; only the airports before the damage are read");
        break;
    case AirportFileState::Unreadable:
        return fail("cannot open or create " + file.string());
    }
    return list;
}

Outcome saveList(CommandContext& ctx, const AirportList& list) {
    const std::filesystem::path file = ctx.paths.dataFile(airportFileName);
    if (!list.save(file))
        return fail("cannot write " + file.string() + "; the list stays as it was");
    return {};
}

Outcome listAirports(CommandContext& ctx, Args& args) {
    if (Outcome none = expectNoWords(args); !none.ok())
        return none;
    Expected<AirportList> list = loadList(ctx);
    if (!list)
        return list.error();
    TablePrinter table({"N", "Description", "ICAO"});
    std::size_t n = 0;
    for (const AirportEntry& entry : list->entries()) {
        if (ctx.tsv())
            table.add({toUtf8(entry.description), toUtf8(entry.code)});
        else
            table.add({std::to_string(n), toUtf8(entry.description), toUtf8(entry.code)});
        ++n;
    }
    table.print(ctx.out, ctx.tsv());
    return {};
}

Outcome addAirport(CommandContext& ctx, Args& args) {
    const auto words = args.words();
    if (!words)
        return words.error();
    if (words->size() > 2)
        return fail("give a description and a code: 'zonara airports add \"London City\" EGLC'");
    // What is missing is refused as an empty box is in the window.
    const std::string description = words->size() > 0 ? (*words)[0] : std::string();
    const std::string code = words->size() > 1 ? (*words)[1] : std::string();
    NewAirport airport = checkNewAirport(toUtf16(description), toUtf16(code));
    if (airport.problem != AirportProblem::None)
        return fail(toUtf8(airportHintText(airport.problem)));
    Expected<AirportList> list = loadList(ctx);
    if (!list)
        return list.error();
    const std::size_t at = list->insertSorted(airport.entry);
    if (Outcome saved = saveList(ctx, *list); !saved.ok())
        return saved;
    ctx.out << "Added " << at << ": " << lineText(airport.entry) << '\n';
    return {};
}

Outcome deleteAirport(CommandContext& ctx, Args& args) {
    const auto words = args.words();
    if (!words)
        return words.error();
    if (words->size() != 1)
        return fail("give the number of the airport to delete, as 'zonara airports' lists it");
    Expected<AirportList> list = loadList(ctx);
    if (!list)
        return list.error();
    const std::string& word = words->front();
    std::size_t n = 0;
    const auto [end, problem] = std::from_chars(word.data(), word.data() + word.size(), n);
    if (problem != std::errc() || end != word.data() + word.size() || n >= list->size()) {
        const std::string range = list->size() == 0
                                      ? std::string("the list is empty")
                                      : "the list has 0 to " + std::to_string(list->size() - 1);
        return fail("no airport '" + word + "'; " + range);
    }
    const std::string gone = lineText(list->entries()[n]);
    list->erase(n);
    if (Outcome saved = saveList(ctx, *list); !saved.ok())
        return saved;
    ctx.out << "Deleted " << n << ": " << gone << '\n';
    return {};
}

Outcome runAirports(CommandContext& ctx, Args& args) {
    const std::optional<std::string> action = args.firstWord();
    if (!action)
        return listAirports(ctx, args);
    if (*action == "add")
        return addAirport(ctx, args);
    if (*action == "delete")
        return deleteAirport(ctx, args);
    return fail("unknown action '" + *action + "'; 'add' or 'delete', or none to list");
}

} // namespace

extern const Command airportsCommand{
    .name = "airports",
    .usage = "[add DESCRIPTION CODE | delete N]",
    .summary = "the user's airport list: list, add, delete",
    .help = "Lists the airports of the user's list (Data/airport.dat) in the list's\n"
            "order, numbered from 0. 'add' puts an airport in as the window's Add does:\n"
            "before the first description that sorts after it, the code trimmed and in\n"
            "capitals; a description is needed (at most 255 characters) and the code\n"
            "must have 4 letters. 'delete N' removes airport N.\n"
            "With --tsv the list is one line per airport: description, a tab, the code.\n",
    .run = runAirports,
};

} // namespace zonara

#include <ostream>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommandTable.h"

namespace zonara {

namespace {

Outcome runHelp(CommandContext& ctx, Args& args) {
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (words->empty()) {
        printGeneralHelp(ctx.out);
        return {};
    }
    if (words->size() != 1) {
        return fail("name one command: 'zonara help time'");
    }
    const Command* command = commandNamed(words->front());
    if (command == nullptr) {
        return fail("no command named '" + words->front() + "'; 'zonara --help' lists them");
    }
    printCommandHelp(*command, ctx.out);
    return {};
}

} // namespace

extern const Command helpCommand{
    .name = "help",
    .usage = "[COMMAND]",
    .summary = "what a command does and takes (as 'zonara COMMAND --help')",
    .help = "Shows the help of COMMAND, the same text as 'zonara COMMAND --help'.\n"
            "Without a command, the list of commands and the options every command\n"
            "takes, as 'zonara --help'.\n",
    .run = runHelp,
    .needsRoot = false,
};

} // namespace zonara

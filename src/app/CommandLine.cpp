#include "app/CommandLine.h"

#include <algorithm>
#include <ostream>

#include "app/cli/CommandTable.h"
#include "cities/NameDistance.h"
#include "core/RootFolder.h"
#include "core/Text.h"

namespace zonara {

namespace {

constexpr std::string_view version = ZONARA_VERSION;

// Offers the command a misspelt name is closest to.
std::string unknownCommand(const std::string& name) {
    const std::string message = "unknown command '" + name + "'";
    std::size_t best = name.size() <= 4 ? 2 : 3; // more edits than this is another word
    const Command* closest = nullptr;
    for (const Command* command : commandTable()) {
        const std::size_t edits = nameDistance(toUtf16(name), toUtf16(command->name)).whole;
        if (edits < best) {
            best = edits;
            closest = command;
        }
    }
    if (closest != nullptr) {
        return message + "; did you mean '" + std::string(closest->name) + "'?";
    }
    return message + "; 'zonara --help' lists the commands";
}

bool isHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

} // namespace

int runCommandLine(const std::vector<std::string>& argv, std::ostream& out, std::ostream& err) {
    return runCommandLine(argv, CommandIo{out, err, false});
}

int runCommandLine(const std::vector<std::string>& argv, const CommandIo& io) {
    const ParsedCommandLine parsed = parseGlobalOptions(argv);
    if (!parsed.error.empty()) {
        io.err << "zonara: " << parsed.error << "\n";
        return 1;
    }
    if (parsed.version) {
        io.out << "zonara " << version << "\n";
        return 0;
    }
    if (parsed.help || parsed.rest.empty()) {
        printGeneralHelp(io.out);
        return 0;
    }

    const std::string& name = parsed.rest.front();
    const Command* command = commandNamed(name);
    if (command == nullptr) {
        io.err << "zonara: " << unknownCommand(name) << "\n";
        return 1;
    }
    std::vector<std::string> words(parsed.rest.begin() + 1, parsed.rest.end());
    if (std::any_of(words.begin(), words.end(), isHelp)) {
        printCommandHelp(*command, io.out);
        return 0;
    }

    const RootChoice root = resolveRoot(parsed.options.root, executableDir());
    if (!root.error.empty() && command->needsRoot) {
        io.err << "zonara " << name << ": " << root.error << "\n";
        return 1;
    }
    CommandContext ctx(*command, parsed.options, Paths(root.root), io);
    Args args(std::move(words), command->name);
    const Outcome outcome = command->run(ctx, args);
    if (outcome.ok()) {
        return 0;
    }
    io.err << "zonara " << name << ": " << outcome.error().message << "\n";
    return outcome.error().exitCode;
}

} // namespace zonara

#include "app/cli/CommandTable.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace zonara {

// Each command's row lives in its own file (Cmd*.cpp); one line here each.
extern const Command nowCommand;
extern const Command timeCommand;
extern const Command citiesCommand;
extern const Command findCommand;
extern const Command slotCommand;
extern const Command settingsCommand;
extern const Command skinsCommand;
extern const Command sunCommand;
extern const Command moonCommand;
extern const Command detailsCommand;
extern const Command airportsCommand;
extern const Command renderClockCommand;
extern const Command renderCommand;
extern const Command updateDataCommand;
extern const Command fetchCommand;
extern const Command calcCommand;
extern const Command convertCommand;
extern const Command stopwatchCommand;
extern const Command ratesCommand;
extern const Command currencyConversionCommand;
extern const Command weatherCommand;
extern const Command helpCommand;

namespace {

constexpr std::string_view generalUsage =
    "Usage: zonara [OPTIONS] [COMMAND [ARGS...]]\n"
    "\n"
    "A world clock with travel tools. Without a command it opens the window.\n"
    "\n"
    "Options:\n"
    "  --root DIR        the folder that holds Data/ and Graphics/\n"
    "                    (default: $ZONARA_ROOT, the program's folder, or\n"
    "                    ~/.local/share/zonara)\n"
    "  --at TIME         take TIME (YYYY-MM-DDTHH:MM:SSZ, UTC) as now\n"
    "  --screen WxH      the device profile: 176x220, 240x320, 480x640 or their\n"
    "                    landscape forms (default 480x640)\n"
    "  --second-display  the profile has a second display\n"
    "  --tsv             tab-separated output for scripts\n"
    "  --version         the program's version\n"
    "  -h, --help        this help; 'zonara help COMMAND' for a command's\n"
    "\n"
    "A city is named as people type it: case, accents and punctuation do not\n"
    "matter, and the beginning of a name is enough when only one city has it.\n"
    "\n"
    "Commands:\n";

constexpr std::array commands = {
    // clang-format off
    &nowCommand,
    &timeCommand,
    &citiesCommand,
    &findCommand,
    &slotCommand,
    &settingsCommand,
    &skinsCommand,
    &sunCommand,
    &moonCommand,
    &detailsCommand,
    &airportsCommand,
    &renderClockCommand,
    &renderCommand,
    &updateDataCommand,
    &fetchCommand,
    &calcCommand,
    &convertCommand,
    &stopwatchCommand,
    &ratesCommand,
    &currencyConversionCommand,
    &weatherCommand,
    &helpCommand,
    // clang-format on
};

} // namespace

void printCommandHelp(const Command& command, std::ostream& out) {
    out << "Usage: zonara " << command.name << (command.usage.empty() ? "" : " ") << command.usage
        << "\n\n"
        << command.help;
}

void printGeneralHelp(std::ostream& out) {
    out << generalUsage;
    for (const Command* command : commands) {
        std::string name(command->name);
        name.resize(std::max<std::size_t>(name.size() + 2, 14), ' ');
        out << "  " << name << command->summary << "\n";
    }
}

std::span<const Command* const> commandTable() {
    return commands;
}

const Command* commandNamed(std::string_view name) {
    for (const Command* command : commands) {
        if (command->name == name) {
            return command;
        }
    }
    return nullptr;
}

} // namespace zonara

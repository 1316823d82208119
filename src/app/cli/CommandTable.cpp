#include "app/cli/CommandTable.h"

#include <array>
#include <ostream>

namespace zonara {

// Each command's row lives in its own file (Cmd*.cpp).
extern const Command nowCommand, timeCommand, citiesCommand, findCommand, slotCommand,
    settingsCommand, skinsCommand, sunCommand, moonCommand, renderClockCommand, renderCommand,
    helpCommand;

namespace {

constexpr std::array commands = {
    &nowCommand,  &timeCommand,        &citiesCommand, &findCommand,
    &slotCommand, &settingsCommand,    &skinsCommand,  &sunCommand,
    &moonCommand, &renderClockCommand, &renderCommand, &helpCommand,
};

} // namespace

void printCommandHelp(const Command& command, std::ostream& out) {
    out << "Usage: zonara " << command.name << (command.usage.empty() ? "" : " ") << command.usage
        << "\n\n"
        << command.help;
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

#include "app/cli/CommandContext.h"

#include <filesystem>
#include <ostream>

#include "app/cli/Command.h"

namespace zonara {

CommandContext::CommandContext(const Command& command, const GlobalOptions& options, Paths paths,
                               const CommandIo& io)
    : options(options), paths(std::move(paths)),
      clock(options.at ? ClockSource::fixedAt(*options.at) : ClockSource::system()), out(io.out),
      err(io.err), outIsTerminal(io.outIsTerminal), in(io.in), command(command) {}

std::string_view CommandContext::commandName() const {
    return command.name;
}

void CommandContext::warn(std::string_view message) const {
    err << "zonara " << command.name << ": " << message << "\n";
}

Expected<DeviceProfile> CommandContext::profile() const {
    if (auto profile =
            deviceProfile(options.screenWidth, options.screenHeight, options.secondDisplay)) {
        return *profile;
    }
    return fail("no screen profile for " + std::to_string(options.screenWidth) + "x" +
                std::to_string(options.screenHeight) +
                "; the screens are 176x220, 240x320, 480x640 and their landscape forms");
}

Settings CommandContext::loadSettings() const {
    Settings settings;
    settings.Load(paths.dataFile(settingsFileName));
    return settings;
}

Outcome CommandContext::saveSettings(const Settings& settings) const {
    const std::filesystem::path file = paths.dataFile(settingsFileName);
    std::error_code ignored; // a folder that cannot be made shows as a failed save
    std::filesystem::create_directories(paths.dataDir(), ignored);
    if (!settings.Save(file)) {
        return fail("cannot write '" + file.string() + "'; nothing changed");
    }
    return {};
}

WorldAccess& CommandContext::world() {
    if (!worldAccess) {
        worldAccess.emplace(paths);
        const WorldAccess::Preparation preparation = worldAccess->prepare();
        if (preparation.rebuilt) {
            err << "Data Changed\nPreparing data\n";
        }
        if (!preparation.problem.empty()) {
            warn(preparation.problem);
        }
    }
    return *worldAccess;
}

const Config& CommandContext::config() {
    if (!configRead) {
        configRead = loadConfig(paths, err, "zonara " + std::string(command.name) + ": ");
    }
    return *configRead;
}

} // namespace zonara

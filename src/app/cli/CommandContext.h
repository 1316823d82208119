#pragma once
// What a running command works with: the global options, the root folder's
// paths, the clock, the device profile, the settings, the world files and
// the output streams.

#include <iosfwd>
#include <optional>
#include <string_view>

#include "app/cli/CommandError.h"
#include "app/cli/GlobalOptions.h"
#include "app/cli/WorldAccess.h"
#include "core/ClockSource.h"
#include "core/DeviceProfile.h"
#include "core/Paths.h"
#include "core/Settings.h"
#include "net/Config.h"

namespace zonara {

struct Command;

// Where a command's output goes.
struct CommandIo {
    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false; // progress bars only then; plain status lines otherwise
    std::istream* in = nullptr; // what the user types, for commands that read it; none in tests
};

class CommandContext {
  public:
    CommandContext(const Command& command, const GlobalOptions& options, Paths paths,
                   const CommandIo& io);

    const GlobalOptions options;
    const Paths paths;
    // --at fixes "now" for the whole run; else the system clock.
    const ClockSource clock;
    std::ostream& out;
    std::ostream& err;
    const bool outIsTerminal;
    std::istream* const in;

    std::string_view commandName() const;
    bool tsv() const { return options.tsv; }
    // "zonara COMMAND: message" on stderr, for what does not stop the command.
    void warn(std::string_view message) const;

    // The device profile of --screen and --second-display; an error for a size
    // that has none.
    Expected<DeviceProfile> profile() const;

    // Data/settings.dat read over the defaults (a missing file gives them all).
    Settings loadSettings() const;
    // Writes the settings whole (creating Data/ when needed); an error leaves
    // the old file as it was.
    Outcome saveSettings(const Settings& settings) const;

    // The world files, checked and rebuilt when they changed on first use
    // (saying so on stderr, as the window's busy window does).
    WorldAccess& world();

    // ROOT/zonara.ini, read on first use only; a malformed value is reported
    // then, once, and its default used.
    const Config& config();

  private:
    const Command& command;
    std::optional<WorldAccess> worldAccess;
    std::optional<Config> configRead;
};

} // namespace zonara

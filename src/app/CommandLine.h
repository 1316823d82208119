#pragma once
// The command line's entry: runs "zonara ARGS..." without the window.

#include <iosfwd>
#include <string>
#include <vector>

#include "app/cli/CommandContext.h"
#include "app/cli/GlobalOptions.h"

namespace zonara {

// Returns the exit code: 0 on success, 1 (or a command's own code) on failure,
// with "zonara COMMAND: message" on err.
int runCommandLine(const std::vector<std::string>& argv, const CommandIo& io);
// The same with out not a terminal.
int runCommandLine(const std::vector<std::string>& argv, std::ostream& out, std::ostream& err);

} // namespace zonara

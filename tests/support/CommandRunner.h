#pragma once
// Runs zonara's command line in-process and keeps what it printed.

#include <string>
#include <vector>

namespace zonara::test {

struct CommandResult {
    int exitCode = 0;
    std::string out;
    std::string err;
};

CommandResult runZonara(const std::vector<std::string>& words);

} // namespace zonara::test

#include "support/CommandRunner.h"

#include <sstream>

#include "app/CommandLine.h"

namespace zonara::test {

CommandResult runZonara(const std::vector<std::string>& words) {
    std::ostringstream out;
    std::ostringstream err;
    const int code = runCommandLine(words, out, err);
    return {code, out.str(), err.str()};
}

} // namespace zonara::test

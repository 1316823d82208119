#include <iostream>
#include <string>
#include <vector>

#include "app/CommandLine.h"

int main(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    const zonara::ParsedCommandLine parsed = zonara::parseGlobalOptions(words);
    if (parsed.error.empty() && !parsed.help && parsed.rest.empty()) {
        // The window is not built yet; the terminal clock stands in for it.
        std::cerr << "zonara: the window comes in a later version; here is the terminal clock "
                     "('zonara now', 'zonara --help' for more)\n";
        words.emplace_back("now");
    }
    return zonara::runCommandLine(words, std::cout, std::cerr);
}

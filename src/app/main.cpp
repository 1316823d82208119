#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

#include "app/CommandLine.h"
#include "app/WindowStart.h"

int main(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    const zonara::ParsedCommandLine parsed = zonara::parseGlobalOptions(words);
    if (parsed.error.empty() && !parsed.help && !parsed.version && parsed.rest.empty()) {
        if (zonara::hasDisplay()) {
            return zonara::runWindow(parsed.options, argc, argv);
        }
        std::cerr << "zonara: no display to open the window on (DISPLAY is not set); "
                     "here is the terminal clock, 'zonara now'\n";
        words.emplace_back("now");
    }
    return zonara::runCommandLine(
        words, zonara::CommandIo{std::cout, std::cerr, isatty(1) == 1, &std::cin});
}

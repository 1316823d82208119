#include "app/CommandLine.h"

#include <charconv>
#include <ostream>

#include "app/Commands.h"
#include "core/RootFolder.h"

namespace zonara {

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
    "  -h, --help        this help; 'zonara COMMAND --help' for a command's\n"
    "\n"
    "Commands:\n";

bool isHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

// "--name VALUE" or "--name=VALUE" at words[i]; advances i past what it took.
std::optional<std::string> takeValue(const std::vector<std::string>& words, std::size_t& i,
                                     std::string_view name, std::string& error) {
    const std::string& word = words[i];
    if (word.size() > name.size() && word.compare(0, name.size(), name) == 0 &&
        word[name.size()] == '=') {
        return word.substr(name.size() + 1);
    }
    if (i + 1 >= words.size()) {
        error = std::string(name) + " needs a value";
        return std::nullopt;
    }
    return words[++i];
}

bool matchesOption(std::string_view word, std::string_view name) {
    return word == name || (word.size() > name.size() && word.substr(0, name.size()) == name &&
                            word[name.size()] == '=');
}

} // namespace

bool Args::flag(std::string_view name) {
    for (auto it = words.begin(); it != words.end(); ++it) {
        if (*it == name) {
            words.erase(it);
            return true;
        }
    }
    return false;
}

std::optional<std::string> Args::option(std::string_view name) {
    std::vector<std::string> all = options(name);
    if (all.size() > 1 && problem.empty()) {
        problem = std::string(name) + " is given more than once";
    }
    if (all.empty()) {
        return std::nullopt;
    }
    return all.back();
}

std::vector<std::string> Args::options(std::string_view name) {
    std::vector<std::string> values;
    std::vector<std::string> left;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!matchesOption(words[i], name)) {
            left.push_back(words[i]);
            continue;
        }
        std::string error;
        if (auto value = takeValue(words, i, name, error)) {
            values.push_back(*value);
        } else if (problem.empty()) {
            problem = error;
        }
    }
    words = std::move(left);
    return values;
}

std::vector<std::string> Args::positionals() {
    std::vector<std::string> result;
    bool onlyPositionals = false;
    for (const std::string& word : words) {
        if (!onlyPositionals && word == "--") {
            onlyPositionals = true;
        } else if (!onlyPositionals && word.size() > 1 && word[0] == '-' &&
                   (word[1] < '0' || word[1] > '9')) {
            if (problem.empty()) {
                problem = "unknown option '" + word + "'";
            }
        } else {
            result.push_back(word);
        }
    }
    words.clear();
    return result;
}

std::optional<std::pair<int, int>> parseScreenSize(std::string_view text) {
    const std::size_t x = text.find_first_of("xX");
    if (x == std::string_view::npos) {
        return std::nullopt;
    }
    int w = 0, h = 0;
    const auto [endW, errW] = std::from_chars(text.data(), text.data() + x, w);
    const auto [endH, errH] = std::from_chars(text.data() + x + 1, text.data() + text.size(), h);
    if (errW != std::errc{} || errH != std::errc{} || endW != text.data() + x ||
        endH != text.data() + text.size() || w < 16 || h < 16 || w > 4096 || h > 4096) {
        return std::nullopt;
    }
    return std::pair{w, h};
}

ParsedCommandLine parseGlobalOptions(const std::vector<std::string>& argv) {
    ParsedCommandLine parsed;
    std::string& error = parsed.error;
    for (std::size_t i = 0; i < argv.size() && error.empty(); ++i) {
        const std::string& word = argv[i];
        if (matchesOption(word, "--root")) {
            if (auto value = takeValue(argv, i, "--root", error)) {
                parsed.options.root = *value;
            }
        } else if (matchesOption(word, "--at")) {
            if (auto value = takeValue(argv, i, "--at", error)) {
                parsed.options.at = parseIsoUtc(*value);
                if (!parsed.options.at) {
                    error = "--at wants a UTC time as YYYY-MM-DDTHH:MM:SSZ, not '" + *value + "'";
                }
            }
        } else if (matchesOption(word, "--screen")) {
            if (auto value = takeValue(argv, i, "--screen", error)) {
                const auto size = parseScreenSize(*value);
                if (!size) {
                    error = "--screen wants a size as WIDTHxHEIGHT, such as 240x320, not '" +
                            *value + "'";
                } else {
                    parsed.options.screenWidth = size->first;
                    parsed.options.screenHeight = size->second;
                }
            }
        } else if (word == "--tsv") {
            parsed.options.tsv = true;
        } else if (word == "--second-display") {
            parsed.options.secondDisplay = true;
        } else if (isHelp(word) && parsed.rest.empty()) {
            parsed.help = true;
        } else {
            parsed.rest.push_back(word);
        }
    }
    return parsed;
}

int runCommandLine(const std::vector<std::string>& argv, std::ostream& out, std::ostream& err) {
    ParsedCommandLine parsed = parseGlobalOptions(argv);
    if (!parsed.error.empty()) {
        err << "zonara: " << parsed.error << "\n";
        return 1;
    }
    if (parsed.help || parsed.rest.empty()) {
        out << generalUsage;
        for (const Subcommand& command : subcommands()) {
            std::string name(command.name);
            name.resize(std::max<std::size_t>(name.size() + 2, 14), ' ');
            out << "  " << name << command.summary << "\n";
        }
        return 0;
    }

    const std::string name = parsed.rest.front();
    const Subcommand* command = findSubcommand(name);
    if (command == nullptr) {
        err << "zonara: unknown command '" << name << "'; 'zonara --help' lists the commands\n";
        return 1;
    }
    std::vector<std::string> words(parsed.rest.begin() + 1, parsed.rest.end());
    for (const std::string& word : words) {
        if (isHelp(word)) {
            out << "Usage: zonara " << command->name << " " << command->usage << "\n\n"
                << command->help;
            return 0;
        }
    }

    const RootChoice root = resolveRoot(parsed.options.root, executableDir());
    if (!root.error.empty()) {
        err << "zonara: " << root.error << "\n";
        return 1;
    }
    CommandContext ctx{parsed.options, Paths(root.root),
                       parsed.options.at ? ClockSource::fixedAt(*parsed.options.at)
                                         : ClockSource::system(),
                       out, err};
    Args args(std::move(words));
    return command->run(ctx, args);
}

} // namespace zonara

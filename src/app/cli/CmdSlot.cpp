#include <filesystem>
#include <ostream>

#include "app/Commands.h"
#include "app/WorldAccess.h"
#include "core/Settings.h"

namespace zonara {

int runSlot(CommandContext& ctx, Args& args) {
    const std::optional<std::string> countryName = args.option("--country");
    const std::vector<std::string> words = args.positionals();
    std::string problem = args.error();
    if (problem.empty() && words.size() != 2) {
        problem = "give a slot number and a city: 'zonara slot 1 Tokyo'";
    } else if (problem.empty() &&
               (words[0].size() != 1 || words[0][0] < '0' || words[0][0] > '3')) {
        problem = "the slot is a number from 0 to 3, not '" + words[0] + "'";
    }
    if (!problem.empty()) {
        ctx.err << "zonara slot: " << problem << "\n";
        return 1;
    }
    const std::size_t index = std::size_t(words[0][0] - '0');

    prepareWorld(ctx);
    CountryList countries;
    const auto match = findCity(ctx, countries, words[1], countryName);
    if (!match) {
        return 1;
    }
    Settings settings;
    const std::filesystem::path file = ctx.paths.dataFile(settingsFileName);
    settings.Load(file);
    settings.slots[index].Assign(*match->country, *match->city);
    std::error_code ignored;
    std::filesystem::create_directories(ctx.paths.dataDir(), ignored);
    if (!settings.Save(file)) {
        ctx.err << "zonara slot: cannot write '" << file.string() << "'; nothing changed\n";
        return 1;
    }
    ctx.out << "Slot " << index << ": " << match->city->name << ", " << match->country->name
            << "\n";
    return 0;
}

} // namespace zonara

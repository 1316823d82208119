#include "app/cli/CityChoice.h"
#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"

namespace zonara {

namespace {

Outcome runSlot(CommandContext& ctx, Args& args) {
    const std::optional<std::string> country = takeCountry(args);
    const auto words = args.words();
    if (!words) {
        return words.error();
    }
    if (words->size() < 2) {
        return fail("give a slot number and a city: 'zonara slot 1 Tokyo'");
    }
    const Expected<std::size_t> slot = slotNumber(words->front());
    if (!slot) {
        return slot.error();
    }
    const std::vector<std::string> cityWords(words->begin() + 1, words->end());
    const Expected<ChosenCity> chosen =
        chooseCity(ctx.world().catalog(), joinedWords(cityWords), country);
    if (!chosen) {
        return chosen.error();
    }

    Settings settings = ctx.loadSettings();
    settings.slots[*slot].Assign(*chosen->country, *chosen->city);
    if (Outcome saved = ctx.saveSettings(settings); !saved.ok()) {
        return saved;
    }
    ctx.out << "Slot " << *slot << ": " << chosen->city->name << ", " << chosen->country->name
            << "\n";
    return {};
}

} // namespace

extern const Command slotCommand{
    .name = "slot",
    .usage = "N CITY [--country NAME]",
    .summary = "put a city into clock slot N (0-3)",
    .help = "Assigns CITY to clock slot N (0 to 3) and saves the settings, as choosing\n"
            "a city in the window does. CITY is found as 'zonara time' finds it; when\n"
            "it fits no city or several, nothing changes.\n",
    .run = runSlot,
};

} // namespace zonara

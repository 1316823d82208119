#include "app/Commands.h"

#include <array>

namespace zonara {

namespace {

// clang-format off
constexpr std::array commandTable = {
    Subcommand{"now", "",
        "the four clock slots' local times",
        "Shows the local time of the four clock slots of the settings; * marks the\n"
        "selected slot. Times follow the 24-hour setting.\n"
        "With --tsv: slot, city, country, date, time, weekday (0 Sunday), offset,\n"
        "daylight-saving state (-1 none, 0 standard, 1 daylight), zone.\n",
        runNow},
    Subcommand{"time", "CITY [--country NAME] | --all",
        "the local time of any city",
        "Shows the local time of CITY (the first city of that exact name, or the\n"
        "one in the country NAME), or with --all of every city, in the columns of\n"
        "'zonara now'. A name that matches nothing lists names close to it.\n",
        runTime},
    Subcommand{"cities", "[--country NAME]",
        "the countries, or the cities of one country",
        "Lists the countries of the world files, or with --country the cities of\n"
        "that country, in file order.\n",
        runCities},
    Subcommand{"find", "TEXT... [--limit N]",
        "find cities by any part of their name",
        "Lists the cities whose name contains TEXT, in every country, without regard\n"
        "to case or accents ('sao' finds São Paulo): names that start with TEXT\n"
        "first, then the others, each alphabetical. Several words are one text.\n"
        "--limit keeps the first N. With --tsv: city, country.\n",
        runFind},
    Subcommand{"slot", "N CITY [--country NAME]",
        "put a city into clock slot N (0-3)",
        "Assigns CITY to clock slot N (0 to 3) and saves the settings, as choosing\n"
        "a city in the window does.\n",
        runSlot},
    Subcommand{"settings", "[--set NAME=VALUE]...",
        "show or change the settings",
        "Shows the settings. Each --set changes one value and the settings are\n"
        "saved; if any value is wrong nothing changes. Names and values:\n"
        "  use24Hour=0|1  currentView=0|1|2 (full clock, globe, multi clock)\n"
        "  selectedSlot=0..3  skinFile=NAME  useCelsius=0|1  useMillibar=0|1\n",
        runSettings},
    Subcommand{"skins", "",
        "the full-clock skins for the screen size",
        "Lists the skins that have a scheme file (Graphics/NAME_WxH.xml) for the\n"
        "screen size of --screen (default 480x640), in file-name order; * marks the\n"
        "current skin of the settings. With --tsv: skin, current (0 or 1).\n",
        runSkins},
    Subcommand{"sun", "CITY [--country NAME] [--date YYYY-MM-DD]",
        "sunrise and sunset of a city",
        "Shows sunrise and sunset of CITY on the date (default: today's UTC date) in\n"
        "UT and in the city's local time (24-hour). A day without sunrise or sunset\n"
        "shows 'Up all day' or 'Down all day'.\n"
        "With --tsv: city, country, date, sunrise UT, sunset UT (HH:MM:SS),\n"
        "sunrise local, sunset local (HH:MM).\n",
        runSun},
    Subcommand{"moon", "[--date YYYY-MM-DD]",
        "the moon's phase",
        "Shows the moon's phase on the date (default: today's UTC date) as an index\n"
        "from 0 (new moon) through 4 (full moon) to 7, and its name.\n"
        "With --tsv: date, index.\n",
        runMoon},
    Subcommand{"render-clock", "analogue|digital --out FILE.png [--size WxH] [--skin NAME]",
        "draw the full clock's analogue or digital clock into a PNG",
        "Draws one clock of the full clock alone, as the full clock draws it, from the\n"
        "skin's scheme for the screen size of --screen (Graphics/NAME_WxH.xml; the\n"
        "skin defaults to the settings' skin). It shows the selected slot's local time\n"
        "(--at fixes it). The clock's rectangle in the scheme gives the picture size\n"
        "unless --size is given; the analogue clock is drawn over its part of the\n"
        "skin's background picture.\n",
        runRenderClock},
    Subcommand{"render", "full --out FILE.png [--screen WxH] [--slot N] [--skin NAME]",
        "draw the full clock view into a PNG",
        "Draws the full clock view offscreen exactly as the window shows it, at the\n"
        "size of --screen (default 480x640; a known screen), with the skin's scheme\n"
        "Graphics/NAME_WxH.xml (default: the settings' skin) and the city of clock\n"
        "slot N (default: the selected slot) at the time of --at (default: now).\n"
        "Times follow the settings' 24-hour setting.\n",
        runRender},
};
// clang-format on

} // namespace

std::span<const Subcommand> subcommands() { return commandTable; }

const Subcommand* findSubcommand(std::string_view name) {
    for (const Subcommand& command : commandTable) {
        if (command.name == name) {
            return &command;
        }
    }
    return nullptr;
}

} // namespace zonara

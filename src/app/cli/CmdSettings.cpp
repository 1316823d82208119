#include <array>
#include <charconv>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/TablePrinter.h"
#include "core/Settings.h"
#include "core/Text.h"

namespace zonara {

namespace {

struct NumberSetting {
    std::string_view name;
    int low;
    int high; // inclusive
};

// clang-format off
constexpr std::array numberSettings = {
    NumberSetting{"use24Hour",    0, 1},
    NumberSetting{"currentView",  0, 2},
    NumberSetting{"selectedSlot", 0, 3},
    NumberSetting{"useCelsius",   0, 1},
    NumberSetting{"useMillibar",  0, 1},
};
// clang-format on

void store(Settings& settings, std::string_view name, int value) {
    if (name == "use24Hour") {
        settings.use24Hour = std::uint8_t(value);
    } else if (name == "currentView") {
        settings.currentView = std::uint8_t(value);
    } else if (name == "selectedSlot") {
        settings.selectedSlot = value;
    } else if (name == "useCelsius") {
        settings.useCelsius = std::uint8_t(value);
    } else if (name == "useMillibar") {
        settings.useMillibar = std::uint8_t(value);
    }
}

// Applies one NAME=VALUE; the error text when it is not a setting or not a
// value it can take.
std::string applySetting(Settings& settings, std::string_view assignment) {
    const std::size_t eq = assignment.find('=');
    if (eq == std::string_view::npos) {
        return "--set wants NAME=VALUE, not '" + std::string(assignment) + "'";
    }
    const std::string_view name = assignment.substr(0, eq);
    const std::string_view value = assignment.substr(eq + 1);
    if (name == "skinFile") {
        if (value.empty() || value.find('/') != std::string_view::npos) {
            return "skinFile wants a skin name such as default.xml, not '" + std::string(value) +
                   "'";
        }
        settings.skinFile = toUtf16(value);
        return {};
    }
    for (const NumberSetting& setting : numberSettings) {
        if (setting.name != name) {
            continue;
        }
        int number = 0;
        const auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), number);
        if (ec != std::errc{} || end != value.data() + value.size() || number < setting.low ||
            number > setting.high) {
            return std::string(name) + " takes a number from " + std::to_string(setting.low) +
                   " to " + std::to_string(setting.high) + ", not '" + std::string(value) + "'";
        }
        store(settings, name, number);
        return {};
    }
    return "no setting named '" + std::string(name) + "'; 'zonara settings --help' lists the names";
}

void printSettings(const Settings& s, std::ostream& out, bool tsv) {
    TablePrinter table({"Name", "Value"});
    for (std::size_t i = 0; i < s.slots.size(); ++i) {
        const ClockSlot& slot = s.slots[i];
        const std::string p = "slot" + std::to_string(i) + ".";
        table.add({p + "countryName", toUtf8(slot.countryName)});
        table.add({p + "cityName", toUtf8(slot.cityName)});
        table.add({p + "airportCode", toUtf8(slot.airportCode)});
        table.add({p + "dialCode", toUtf8(slot.dialCode)});
        table.add({p + "timeZoneIndex", std::to_string(slot.timeZoneIndex)});
        table.add({p + "dstRuleIndex", std::to_string(slot.dstRuleIndex)});
        table.add({p + "longitude", twoDecimals(slot.longitude)});
        table.add({p + "latitude", twoDecimals(slot.latitude)});
        table.add({p + "stationCode", toUtf8(slot.stationCode)});
        table.add({p + "weatherQuery", toUtf8(slot.weatherQuery)});
    }
    table.add({"skinFile", toUtf8(s.skinFile)});
    table.add({"selectedSlot", std::to_string(s.selectedSlot)});
    table.add({"use24Hour", std::to_string(s.use24Hour)});
    table.add({"currentView", std::to_string(s.currentView)});
    table.add({"useCelsius", std::to_string(s.useCelsius)});
    table.add({"useMillibar", std::to_string(s.useMillibar)});
    table.add({"weatherQuery", toUtf8(s.weatherQuery)});
    table.add({"weatherCity", toUtf8(s.weatherCity)});
    table.add({"weatherCountry", toUtf8(s.weatherCountry)});
    table.print(out, tsv);
}

Outcome runSettings(CommandContext& ctx, Args& args) {
    const std::vector<std::string> assignments = args.options("--set");
    if (Outcome done = expectNoWords(args, "use --set NAME=VALUE"); !done.ok()) {
        return done;
    }
    Settings settings = ctx.loadSettings();
    if (!assignments.empty()) {
        for (const std::string& assignment : assignments) {
            if (const std::string error = applySetting(settings, assignment); !error.empty()) {
                return fail(error + "; nothing changed");
            }
        }
        if (Outcome saved = ctx.saveSettings(settings); !saved.ok()) {
            return saved;
        }
    }
    printSettings(settings, ctx.out, ctx.tsv());
    return {};
}

} // namespace

extern const Command settingsCommand{
    .name = "settings",
    .usage = "[--set NAME=VALUE]...",
    .summary = "show or change the settings",
    .help = "Shows the settings. Each --set changes one value and the settings are\n"
            "saved; if any value is wrong nothing changes. Names and values:\n"
            "  use24Hour=0|1  currentView=0|1|2 (full clock, globe, multi clock)\n"
            "  selectedSlot=0..3  skinFile=NAME  useCelsius=0|1  useMillibar=0|1\n",
    .run = runSettings,
};

} // namespace zonara

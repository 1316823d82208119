#include <array>
#include <charconv>
#include <filesystem>
#include <ostream>

#include "app/Commands.h"
#include "app/WorldAccess.h"
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

} // namespace

int runSettings(CommandContext& ctx, Args& args) {
    const std::vector<std::string> assignments = args.options("--set");
    if (!expectNoMoreArgs(ctx, args, "settings", "use --set NAME=VALUE")) {
        return 1;
    }
    Settings settings;
    const std::filesystem::path file = ctx.paths.dataFile(settingsFileName);
    settings.Load(file);
    if (!assignments.empty()) {
        Settings changed = settings;
        for (const std::string& assignment : assignments) {
            if (const std::string error = applySetting(changed, assignment); !error.empty()) {
                ctx.err << "zonara settings: " << error << "; nothing changed\n";
                return 1;
            }
        }
        std::error_code ignored;
        std::filesystem::create_directories(ctx.paths.dataDir(), ignored);
        if (!changed.Save(file)) {
            ctx.err << "zonara settings: cannot write '" << file.string() << "'; nothing changed\n";
            return 1;
        }
        settings = changed;
    }
    printSettings(settings, ctx.out, ctx.options.tsv);
    return 0;
}

} // namespace zonara

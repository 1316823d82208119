#include <algorithm>
#include <ostream>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "net/Config.h"
#include "net/WeatherIcons.h"
#include "net/WeatherService.h"
#include "net/WeatherSettings.h"

namespace zonara {

namespace {

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

// The current values as the window's now page shows them.
void printNow(const WeatherReport& report, std::ostream& out, bool tsv) {
    const std::vector<WeatherRow> rows = weatherNowRows(report);
    std::size_t width = 0;
    for (const WeatherRow& row : rows)
        width = std::max(width, row.label.size());
    for (const WeatherRow& row : rows)
        out << (tsv ? row.label + "\t" : padded(row.label, width + 2)) << row.value << "\n";
}

// The forecast periods as the window's forecast page shows them, under the
// report's heading and date.
void printForecast(const WeatherReport& report, std::ostream& out, bool tsv) {
    if (tsv) {
        for (const WeatherPeriod& period : report.forecast)
            out << period.name << "\t" << weatherIconDescription(period.icon) << "\t" << period.high
                << "\t" << period.low << "\n";
        return;
    }
    for (const auto& line : {report.heading, report.date})
        if (line)
            out << *line << "\n";
    std::size_t nameWidth = 0;
    std::size_t conditionsWidth = 0;
    for (const WeatherPeriod& period : report.forecast) {
        nameWidth = std::max(nameWidth, period.name.size());
        conditionsWidth = std::max(conditionsWidth, weatherIconDescription(period.icon).size());
    }
    for (const WeatherPeriod& period : report.forecast)
        out << padded(period.name, nameWidth + 2)
            << padded(std::string(weatherIconDescription(period.icon)), conditionsWidth + 2)
            << period.line << "\n";
    if (report.credit)
        out << *report.credit << "\n";
}

// One update for the slot's city, with progress on stderr at a terminal.
WeatherOutcome refresh(CommandContext& ctx, Settings& settings, std::size_t slot) {
    const WeatherService service = weatherServiceFor(ctx.paths, ctx.clock, ctx.config());
    const WeatherJob job = weatherJobFor(settings.slots[slot], ctx.world().rules());
    const WeatherStatus status = [&ctx](std::string_view text) {
        if (ctx.outIsTerminal)
            ctx.err << text << "\n";
    };
    WeatherOutcome outcome =
        updateWeather(service, job, weatherUnitsOf(settings), status, std::stop_token());
    if (outcome.kind == WeatherOutcome::Kind::Stored)
        rememberWeatherLocation(settings, settings.slots[slot]);
    return outcome;
}

Outcome runWeather(CommandContext& ctx, Args& args) {
    Settings settings = ctx.loadSettings();
    const Expected<std::size_t> slot = takeSlot(args, settings);
    const bool update = args.flag("--refresh");
    const bool forecast = args.flag("--forecast");
    if (Outcome words = expectNoWords(args); !words.ok())
        return words;
    if (!slot)
        return slot.error();

    std::optional<CommandError> failure;
    if (update) {
        const WeatherOutcome outcome = refresh(ctx, settings, *slot);
        switch (outcome.kind) {
        case WeatherOutcome::Kind::Stored:
            if (Outcome saved = ctx.saveSettings(settings); !saved.ok())
                return saved;
            break;
        case WeatherOutcome::Kind::Failed:
            failure = fail(outcome.error);
            break;
        case WeatherOutcome::Kind::NotStored:
        case WeatherOutcome::Kind::Cancelled:
            failure = fail("the new report could not be kept in " +
                           ctx.paths.dataFile(weatherFileName).string());
            break;
        }
    }
    // A failed update still shows the last stored report, as the window does.
    const std::optional<WeatherReport> report =
        loadWeatherReport(ctx.paths.dataFile(weatherFileName), weatherUnitsOf(settings));
    if (report) {
        if (forecast)
            printForecast(*report, ctx.out, ctx.tsv());
        else
            printNow(*report, ctx.out, ctx.tsv());
    }
    if (failure)
        return *failure;
    if (!report)
        return fail("no weather report is stored yet; 'zonara weather --refresh' fetches one");
    return {};
}

} // namespace

extern const Command weatherCommand{
    .name = "weather",
    .usage = "[--slot N] [--refresh] [--forecast]",
    .summary = "the weather report of a clock slot's city",
    .help = "Shows the stored weather report (Data/weather.xml) as the weather window\n"
            "does: the current conditions, or with --forecast the forecast periods.\n"
            "Temperatures and the barometer follow the window's Celsius and millibar\n"
            "choices.\n"
            "--refresh first fetches a new report for the city of clock slot N (0-3;\n"
            "default: the selected slot) from the update hosts of zonara.ini, or from\n"
            "MET Norway directly when none is named. When that fails, the last stored\n"
            "report is shown and the command ends with the error and exit status 1.\n"
            "With --tsv: one 'label<TAB>value' line per value, or with --forecast one\n"
            "'period<TAB>conditions<TAB>high<TAB>low' line per period (an empty high or\n"
            "low when the period has none).\n",
    .run = runWeather,
};

} // namespace zonara

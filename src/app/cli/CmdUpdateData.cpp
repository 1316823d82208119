#include <ostream>
#include <string>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/InterruptStop.h"
#include "app/cli/TransferProgress.h"
#include "cities/SlotLookup.h"
#include "net/DataUpdate.h"

namespace zonara {

namespace {

// The file a status text announces, for the progress line.
std::string_view fileAnnounced(UpdateStatus status) {
    switch (status) {
    case UpdateStatus::CheckingForNewData:
        return updateFiles[0].installed;
    case UpdateStatus::DownloadCityData:
        return updateFiles[1].installed;
    case UpdateStatus::DownloadDstData:
        return updateFiles[2].installed;
    case UpdateStatus::DownloadCountryData:
        return updateFiles[3].installed;
    default:
        return {};
    }
}

// The run's texts one per line on stderr, each file's progress on stdout.
class CommandSink : public UpdateSink {
  public:
    CommandSink(std::ostream& err, TransferProgress& progress) : err(err), progress(progress) {}

    void status(UpdateStatus status) override {
        checked = checked || status == UpdateStatus::CheckingForNewData;
        progress.end();
        err << statusText(status) << "\n" << std::flush;
        if (const std::string_view file = fileAnnounced(status); !file.empty())
            progress.begin(std::string(file));
    }
    void progressRange(std::uint16_t, std::int32_t length) override { progress.size(length); }
    void progressPosition(std::int32_t bytes) override { progress.position(bytes); }
    void runEnded(UpdateOutcome) override { progress.end(); }

    bool checked = false; // the primary host was asked for the version file

  private:
    std::ostream& err;
    TransferProgress& progress;
};

// The installed version stamp as text: its four bytes when they are
// printable, else in hexadecimal.
std::string versionText(const Paths& paths) {
    const std::uint32_t stamp = readVersionStamp(paths.dataFile(updateFiles[0].installed), 0);
    std::string text;
    bool printable = true;
    for (int i = 0; i < 4; ++i) {
        const char c = char((stamp >> (8 * i)) & 0xFF);
        printable = printable && c >= 0x21 && c <= 0x7E;
        text += c;
    }
    if (printable)
        return text;
    static constexpr char digits[] = "0123456789abcdef";
    std::string hex = "0x";
    for (int i = 0; i < 4; ++i) {
        const unsigned byte = (stamp >> (8 * i)) & 0xFF;
        hex += digits[byte >> 4];
        hex += digits[byte & 15];
    }
    return hex;
}

// What the window does after an install: the files rebuilt (with the busy
// window's texts), the settings' slots looked up again by name.
Outcome afterInstall(CommandContext& ctx) {
    WorldAccess& world = ctx.world();
    Settings settings = ctx.loadSettings();
    if (lookUpSlotsAgain(world.catalog(), settings.slots) > 0) {
        if (Outcome saved = ctx.saveSettings(settings); !saved.ok())
            ctx.warn(saved.error().message);
    }
    ctx.out << "installed world data version " << versionText(ctx.paths) << "\n";
    return {};
}

// Why a run failed, for the line after the status texts.
CommandError failure(UpdateOutcome outcome, const Config& config, bool primaryAsked) {
    const UpdateConfig& hosts = config.update;
    const std::string port = " (port " + std::to_string(config.network.httpPort) + ")";
    switch (outcome) {
    case UpdateOutcome::UnableToConnect:
        if (hosts.primary.empty())
            return fail("no update host: set [update] primary in zonara.ini");
        if (config.network.offline)
            return fail("[network] offline is set in zonara.ini");
        if (!primaryAsked)
            return fail("no network interface can reach " + hosts.primary);
        if (hosts.fallback.empty())
            return fail("the version file did not come from " + hosts.primary + port +
                        " and no [update] fallback is set");
        return fail("the version file did not come from " + hosts.primary + port +
                    " and no network interface can reach " + hosts.fallback);
    case UpdateOutcome::ServerError:
        return fail("the version file came from neither " + hosts.primary + " nor " +
                    hosts.fallback + port);
    case UpdateOutcome::FailedToGetAllFiles:
        return fail("a world file did not arrive whole or is not world data; the installed "
                    "files are unchanged");
    case UpdateOutcome::Cancelled:
        return fail("interrupted; the installed files are unchanged");
    case UpdateOutcome::Finished:
    case UpdateOutcome::NoNewData:
        break;
    }
    return fail("the update did not finish");
}

Outcome runUpdateData(CommandContext& ctx, Args& args) {
    if (Outcome done = expectNoWords(args); !done.ok())
        return done;
    const Config& config = ctx.config();
    TransferProgress progress(ctx.out, ctx.outIsTerminal);
    CommandSink sink(ctx.err, progress);
    UpdateOutcome outcome;
    {
        InterruptStop interrupt;
        outcome = runDataUpdate(ctx.paths, config, sink, interrupt.token());
    }
    if (outcome == UpdateOutcome::Finished)
        return afterInstall(ctx);
    if (outcome == UpdateOutcome::NoNewData) {
        ctx.out << "world data version " << versionText(ctx.paths) << " is the newest\n";
        return {};
    }
    return failure(outcome, config, sink.checked);
}

} // namespace

extern const Command updateDataCommand{
    .name = "update-data",
    .usage = "",
    .summary = "fetch the newest world data from the update host",
    .help = "Runs the data update of the window's \"Update Data\": fetches the version\n"
            "file from the update host of zonara.ini ([update] primary, then fallback)\n"
            "and, when it differs from the installed one, the city, country and\n"
            "daylight-saving files; they replace the installed files only when all\n"
            "three arrived and load as world data. The files are then prepared as\n"
            "at the window's start, and the settings' clock slots are looked up\n"
            "again by name.\n"
            "\n"
            "The status texts go to stderr, one per line; each file's progress goes\n"
            "to stdout, as a bar on a terminal and as one line otherwise. Ctrl-C\n"
            "stops the run and removes its temporary files.\n"
            "\n"
            "Exit status: 0 for \"Finished\" and \"No new data\", 1 otherwise.\n",
    .run = runUpdateData,
};

} // namespace zonara

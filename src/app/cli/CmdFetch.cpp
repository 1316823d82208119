#include <ostream>
#include <string>

#include "app/cli/Command.h"
#include "app/cli/CommandContext.h"
#include "app/cli/CommonOptions.h"
#include "app/cli/InterruptStop.h"
#include "app/cli/TransferProgress.h"
#include "net/FetchFile.h"

namespace zonara {

namespace {

class ProgressOwner : public DownloadOwner {
  public:
    explicit ProgressOwner(TransferProgress& progress) : progress(progress) {}
    void downloadSize(std::int32_t length) override { progress.size(length); }
    void downloadProgress(std::int32_t bytes) override { progress.position(bytes); }

  private:
    TransferProgress& progress;
};

Outcome runFetch(CommandContext& ctx, Args& args) {
    const Expected<std::filesystem::path> out = takeOut(args);
    const auto words = args.words();
    if (!words)
        return words.error();
    if (words->size() != 1)
        return fail("name one URL: 'zonara fetch http://HOST/PATH --out FILE'");
    if (!out)
        return out.error();
    const std::string& url = words->front();

    const Config& config = ctx.config();
    TransferProgress progress(ctx.out, ctx.outIsTerminal);
    ProgressOwner owner(progress);
    progress.begin(out->string());
    FetchResult result;
    bool interrupted = false;
    {
        InterruptStop interrupt;
        result = fetchFile(config.network, url, *out, &owner, interrupt.token());
        interrupted = interrupt.interrupted();
    }
    progress.end();
    if (interrupted && !result.ok)
        return fail("interrupted; " + out->string() + " is as it was");
    if (!result.ok)
        return fail(std::string(errorCode(result.error)) + ": " + url + " was not fetched; " +
                    out->string() + " is as it was");
    if (result.error == DownloadError::ConnectionProblem)
        ctx.warn(std::string(errorCode(result.error)) +
                 ": a read timed out and was let pass, so a chunk may be in the file twice");
    return {};
}

} // namespace

extern const Command fetchCommand{
    .name = "fetch",
    .usage = "URL --out FILE",
    .summary = "download one URL into a file, as the data update does",
    .help = "Downloads URL into FILE through the program's own downloader, the one\n"
            "the data update uses: the port of zonara.ini's [network] section\n"
            "(http_port, or https_port for an https URL) whatever the URL names, reads\n"
            "of at most 1000 bytes, each waited for at most timeout_s. FILE appears\n"
            "only when the whole body arrived; a failure leaves it as it was and prints\n"
            "the downloader's error code (NON_EXISTENT_URL, CONNECTION_PROBLEM, ...).\n"
            "Useful to check an update host. The progress goes to stdout, as a bar on\n"
            "a terminal and as one line otherwise.\n",
    .run = runFetch,
};

} // namespace zonara

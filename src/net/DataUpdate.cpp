#include "net/DataUpdate.h"

#include <fstream>
#include <string>
#include <system_error>

#include "net/ConnectionCheck.h"
#include "net/WorldCheck.h"

namespace zonara {

namespace {

class ProgressToSink : public DownloadOwner {
  public:
    explicit ProgressToSink(UpdateSink& sink) : sink(sink) {}
    void downloadSize(std::int32_t length) override {
        sink.progressRange(std::uint16_t(std::uint32_t(length) & 0xFFFF), length);
        sink.progressPosition(0);
    }
    void downloadProgress(std::int32_t bytes) override { sink.progressPosition(bytes); }

  private:
    UpdateSink& sink;
};

std::string urlFor(std::string_view host, std::string_view serverPath) {
    const bool bareIpv6 = host.find(':') != std::string_view::npos && !host.starts_with('[');
    return bareIpv6 ? "http://[" + std::string(host) + "]" + std::string(serverPath)
                    : "http://" + std::string(host) + std::string(serverPath);
}

class Run {
  public:
    Run(const Paths& paths, const Config& config, FileDownloader& downloader, UpdateSink& sink,
        std::stop_token stop)
        : paths(paths), config(config), downloader(downloader), sink(sink), owner(sink),
          stop(std::move(stop)) {}

    UpdateOutcome go() {
        sink.runStarted();
        const UpdateOutcome outcome = steps();
        if (outcome == UpdateOutcome::Cancelled) {
            removeUpdateTemporaries(paths);
        }
        sink.runEnded(outcome);
        return outcome;
    }

  private:
    static constexpr std::size_t version = 0, city = 1, daylight = 2, country = 3;

    UpdateOutcome steps() {
        std::string host = config.update.primary;
        if (!connect(host)) {
            return UpdateOutcome::UnableToConnect;
        }
        bool onFallback = false;
        while (true) {
            sink.status(UpdateStatus::CheckingForNewData);
            if (fetch(host, version)) {
                break;
            }
            if (stop.stop_requested()) {
                return UpdateOutcome::Cancelled;
            }
            if (onFallback) {
                sink.status(UpdateStatus::ServerError);
                return UpdateOutcome::ServerError; // a partial version file stays
            }
            onFallback = true;
            host = config.update.fallback;
            if (!connect(host)) {
                return UpdateOutcome::UnableToConnect;
            }
        }

        // The new stamp starts as 0 and the installed one as 1, so that a
        // failed read leaves them different.
        const std::uint32_t fresh = readVersionStamp(temporary(version), 0);
        const std::uint32_t installed = readVersionStamp(installedFile(version), 1);
        UpdateOutcome outcome = UpdateOutcome::NoNewData;
        if (fresh == installed) {
            sink.status(UpdateStatus::NoNewData);
        } else {
            const bool all = download(host, UpdateStatus::DownloadCityData, city) &&
                             download(host, UpdateStatus::DownloadCountryData, country) &&
                             download(host, UpdateStatus::DownloadDstData, daylight);
            if (stop.stop_requested()) {
                return UpdateOutcome::Cancelled;
            }
            if (all && loadsAsWorld()) {
                sink.status(UpdateStatus::InstallData);
                install();
                sink.status(UpdateStatus::Finished);
                outcome = UpdateOutcome::Finished;
            } else {
                sink.status(UpdateStatus::FailedToGetAllFiles);
                outcome = UpdateOutcome::FailedToGetAllFiles;
            }
        }
        removeUpdateTemporaries(paths);
        return outcome;
    }

    bool connect(const std::string& host) {
        sink.status(UpdateStatus::DialConnection);
        if (EnsureInternetConnection(slot, config.network, host)) {
            return true;
        }
        sink.status(UpdateStatus::UnableToConnect);
        return false;
    }

    bool fetch(const std::string& host, std::size_t file) {
        if (stop.stop_requested()) {
            return false;
        }
        const std::string url = urlFor(host, updateFiles[file].serverPath);
        const std::string path = temporary(file).string();
        return downloader.Download(url.c_str(), path.c_str(), nullptr, nullptr, &owner, stop) == 1;
    }

    bool download(const std::string& host, UpdateStatus text, std::size_t file) {
        if (stop.stop_requested()) {
            return false;
        }
        sink.status(text);
        return fetch(host, file);
    }

    bool loadsAsWorld() const {
        const WorldFileSet files{temporary(country), temporary(city), temporary(daylight)};
        return checkWorldFiles(files, paths.dataDir()) == WorldProblem::None;
    }

    // Each file replaced by a rename in its own folder: a crash leaves the old
    // file or the new one, never part of one.
    void install() const {
        for (std::size_t file : {version, city, daylight, country}) {
            std::error_code ignored;
            std::filesystem::rename(temporary(file), installedFile(file), ignored);
        }
    }

    std::filesystem::path temporary(std::size_t file) const {
        return paths.dataFile(updateFiles[file].temporary);
    }
    std::filesystem::path installedFile(std::size_t file) const {
        return paths.dataFile(updateFiles[file].installed);
    }

    const Paths& paths;
    const Config& config;
    FileDownloader& downloader;
    UpdateSink& sink;
    ProgressToSink owner;
    std::stop_token stop;
    ConnectionSlot slot;
};

} // namespace

UpdateOutcome runDataUpdate(const Paths& paths, const Config& config, FileDownloader& downloader,
                            UpdateSink& sink, std::stop_token stop) {
    return Run(paths, config, downloader, sink, std::move(stop)).go();
}

UpdateOutcome runDataUpdate(const Paths& paths, const Config& config, UpdateSink& sink,
                            std::stop_token stop) {
    FileDownloader downloader(config.network);
    return runDataUpdate(paths, config, downloader, sink, std::move(stop));
}

void removeUpdateTemporaries(const Paths& paths) {
    for (const UpdateFile& file : updateFiles) {
        std::error_code ignored;
        std::filesystem::remove(paths.dataFile(file.temporary), ignored);
    }
}

std::uint32_t readVersionStamp(const std::filesystem::path& file, std::uint32_t initial) {
    unsigned char bytes[4] = {};
    for (int i = 0; i < 4; ++i) {
        bytes[i] = (initial >> (8 * i)) & 0xFF;
    }
    std::ifstream in(file, std::ios::binary);
    if (in) {
        in.read(reinterpret_cast<char*>(bytes), 4);
    }
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        value |= std::uint32_t(bytes[i]) << (8 * i);
    }
    return value;
}

} // namespace zonara

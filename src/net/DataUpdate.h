#pragma once
// One data update run: the version check against the update hosts, the three
// world files into temporary files, and their installation.

#include <array>
#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string_view>

#include "core/Paths.h"
#include "net/Config.h"
#include "net/FileDownloader.h"
#include "net/UpdateStatus.h"

namespace zonara {

struct UpdateFile {
    std::string_view installed; // under Data/
    std::string_view temporary; // under Data/
    std::string_view serverPath;
};

// In the order of installation and removal: version, city, daylight, country.
inline constexpr std::array<UpdateFile, 4> updateFiles = {{
    {"version40.dat", "version40.tmp", "/zonara/version40.dat"},
    {"city40.dat", "city40.tmp", "/zonara/city40.dat"},
    {"daylight40.dat", "daylight40.tmp", "/zonara/daylight40.dat"},
    {"country40.dat", "country40.tmp", "/zonara/country40.dat"},
}};

// What a run reports, on the thread that runs it.
class UpdateSink {
  public:
    virtual ~UpdateSink() = default;
    virtual void runStarted() {}
    virtual void status(UpdateStatus status) = 0;
    // A file's length is known: a progress bar's range becomes 0..range (the
    // length's low 16 bits, wrapping for larger files) and its position 0.
    virtual void progressRange(std::uint16_t range, std::int32_t length) = 0;
    virtual void progressPosition(std::int32_t bytes) = 0;
    virtual void runEnded(UpdateOutcome) {}
};

// Runs the whole update and returns how it ended. A stop request aborts the
// transfer in progress; the run then ends at once as Cancelled, without a
// further status and with the temporary files removed.
UpdateOutcome runDataUpdate(const Paths& paths, const Config& config, FileDownloader& downloader,
                            UpdateSink& sink, std::stop_token stop = {});
UpdateOutcome runDataUpdate(const Paths& paths, const Config& config, UpdateSink& sink,
                            std::stop_token stop = {});

void removeUpdateTemporaries(const Paths& paths);

// The first four bytes of a file as a little-endian number; bytes a short or
// failed read leaves out keep their value from initial.
std::uint32_t readVersionStamp(const std::filesystem::path& file, std::uint32_t initial);

} // namespace zonara

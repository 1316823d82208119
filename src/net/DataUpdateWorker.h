#pragma once
// Runs data updates on a worker thread of their own, one at a time, and stops
// them on request.

#include <atomic>
#include <optional>
#include <thread>

#include "core/Paths.h"
#include "net/Config.h"
#include "net/DataUpdate.h"
#include "net/FileDownloader.h"

namespace zonara {

class DataUpdateWorker {
  public:
    DataUpdateWorker(Paths paths, Config config);
    // Cancels a run still going on.
    ~DataUpdateWorker();
    DataUpdateWorker(const DataUpdateWorker&) = delete;
    DataUpdateWorker& operator=(const DataUpdateWorker&) = delete;

    // Starts a run that reports to the sink from the worker thread; false (and
    // nothing happens) while a run is going on. The sink must outlive the run;
    // it hears runEnded after running() has turned false, and must not call
    // start or cancel itself from the worker thread.
    bool start(UpdateSink& sink);
    bool running() const { return active.load(); }
    // With a run going on: aborts its transfer, waits for the worker to end
    // and removes the temporary files. Without one, nothing is done.
    void cancel();
    // How the last run that ended, ended.
    std::optional<UpdateOutcome> outcome() const;

  private:
    Paths paths;
    Config config;
    FileDownloader downloader;
    std::atomic<bool> active{false};
    std::atomic<int> lastOutcome{-1};
    std::jthread worker; // last: stopped and joined before the rest goes
};

} // namespace zonara

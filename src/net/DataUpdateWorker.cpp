#include "net/DataUpdateWorker.h"

namespace zonara {

DataUpdateWorker::DataUpdateWorker(Paths paths, Config config)
    : paths(std::move(paths)), config(std::move(config)), downloader(this->config.network) {}

DataUpdateWorker::~DataUpdateWorker() {
    cancel();
}

bool DataUpdateWorker::start(UpdateSink& sink) {
    if (active.load()) {
        return false;
    }
    if (worker.joinable()) {
        worker.join(); // a run that has ended
    }
    active.store(true);
    worker = std::jthread([this, &sink](std::stop_token stop) {
        const UpdateOutcome outcome = runDataUpdate(paths, config, downloader, sink, stop);
        lastOutcome.store(int(outcome));
        active.store(false);
    });
    return true;
}

void DataUpdateWorker::cancel() {
    if (!worker.joinable()) {
        return;
    }
    const bool wasRunning = active.load();
    worker.request_stop();
    worker.join();
    if (wasRunning) {
        removeUpdateTemporaries(paths);
    }
}

std::optional<UpdateOutcome> DataUpdateWorker::outcome() const {
    const int value = lastOutcome.load();
    return value < 0 ? std::nullopt : std::optional(UpdateOutcome(value));
}

} // namespace zonara

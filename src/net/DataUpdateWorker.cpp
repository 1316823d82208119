#include "net/DataUpdateWorker.h"

namespace zonara {

namespace {

// Marks the run as ended before the sink hears of it, so that a sink that
// lets the user start again at once is not refused.
class EndingSink : public UpdateSink {
  public:
    EndingSink(UpdateSink& sink, std::atomic<bool>& active, std::atomic<int>& outcome)
        : sink(sink), active(active), outcome(outcome) {}
    void runStarted() override { sink.runStarted(); }
    void status(UpdateStatus status) override { sink.status(status); }
    void progressRange(std::uint16_t range, std::int32_t length) override {
        sink.progressRange(range, length);
    }
    void progressPosition(std::int32_t bytes) override { sink.progressPosition(bytes); }
    void runEnded(UpdateOutcome ended) override {
        outcome.store(int(ended));
        active.store(false);
        sink.runEnded(ended);
    }

  private:
    UpdateSink& sink;
    std::atomic<bool>& active;
    std::atomic<int>& outcome;
};

} // namespace

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
        EndingSink ending(sink, active, lastOutcome);
        runDataUpdate(paths, config, downloader, ending, stop);
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

#pragma once
// What the transfer tests record: a download's messages to its owner.

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "net/DownloadOwner.h"

namespace zonara::test {

// "S5" for a size message of 5 bytes, "P1000" for progress at 1000 bytes.
class RecordingOwner : public DownloadOwner {
  public:
    void downloadSize(std::int32_t length) override { add('S', length); }
    void downloadProgress(std::int32_t bytes) override {
        add('P', bytes);
        if (onProgress) {
            onProgress(bytes);
        }
    }

    std::vector<std::string> messages() const {
        const std::lock_guard lock(mutex);
        return log;
    }
    // Waits (at most 30 s) until some message has arrived.
    bool waitForAny() {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(30), [&] { return !log.empty(); });
    }

    std::function<void(std::int32_t)> onProgress;

  private:
    void add(char kind, std::int32_t value) {
        std::string message(1, kind);
        message.append(std::to_string(value));
        {
            const std::lock_guard lock(mutex);
            log.push_back(std::move(message));
        }
        changed.notify_all();
    }

    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::string> log;
};

} // namespace zonara::test

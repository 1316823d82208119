#pragma once
// Runs one rates refresh at a time on a thread of its own, stoppable at any moment.

#include <atomic>
#include <functional>
#include <thread>

#include "net/CurrencyRefresh.h"

namespace zonara {

class CurrencyRefreshWorker {
  public:
    // Called on the worker thread when the refresh ends, cancelled ones
    // included; it must not call start or stop itself.
    using Done = std::function<void(const CurrencyRefreshOutcome& outcome)>;

    CurrencyRefreshWorker() = default;
    ~CurrencyRefreshWorker() { stop(); }
    CurrencyRefreshWorker(const CurrencyRefreshWorker&) = delete;
    CurrencyRefreshWorker& operator=(const CurrencyRefreshWorker&) = delete;

    // False, and nothing started, while a refresh is still running.
    bool start(CurrencyRefreshSetup setup, Done done);
    // Asks a running refresh to stop and waits until its thread has ended;
    // the stored list is then as the refresh left it, whole.
    void stop();
    bool running() const { return busy; }

  private:
    std::jthread thread;
    std::atomic<bool> busy = false;
};

} // namespace zonara

#include "net/CurrencyRefreshWorker.h"

namespace zonara {

bool CurrencyRefreshWorker::start(CurrencyRefreshSetup setup, Done done) {
    if (busy) {
        return false;
    }
    if (thread.joinable()) {
        thread.join(); // the last refresh has ended; only its thread is left
    }
    busy = true;
    thread = std::jthread(
        [this, setup = std::move(setup), done = std::move(done)](std::stop_token stop) {
            const CurrencyRefreshOutcome outcome = RefreshRates(setup, stop);
            // Free before reporting, so that whoever hears of the end can start
            // the next refresh at once (from another thread: start joins this one).
            busy = false;
            if (done) {
                done(outcome);
            }
        });
    return true;
}

void CurrencyRefreshWorker::stop() {
    if (thread.joinable()) {
        thread.request_stop();
        thread.join();
    }
}

} // namespace zonara

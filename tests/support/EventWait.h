#pragma once
// Runs the Qt event loop until a condition holds, for what a worker thread
// reports through queued calls.

#include <chrono>
#include <functional>
#include <thread>

#include <QCoreApplication>

namespace zonara::test {

// True as soon as done() holds; false after the limit, so that a test that
// fails does not hang.
inline bool processEventsUntil(const std::function<bool()>& done,
                               std::chrono::seconds limit = std::chrono::seconds(30)) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace zonara::test

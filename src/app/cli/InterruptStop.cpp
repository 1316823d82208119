#include "app/cli/InterruptStop.h"

#include <pthread.h>

#include <ctime>

namespace zonara {

InterruptStop::InterruptStop() {
    sigemptyset(&watched);
    sigaddset(&watched, SIGINT);
    sigaddset(&watched, SIGTERM);
    sigaddset(&watched, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &watched, &previous);
    watcher = std::jthread([this](std::stop_token stop) {
        // Looks every tenth of a second whether the command is done.
        const timespec wait{0, 100'000'000};
        while (!stop.stop_requested()) {
            if (sigtimedwait(&watched, nullptr, &wait) > 0) {
                caught.store(true);
                source.request_stop();
                return;
            }
        }
    });
}

InterruptStop::~InterruptStop() {
    watcher.request_stop();
    watcher.join();
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

} // namespace zonara

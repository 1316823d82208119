#pragma once
// While it lives, Ctrl-C (SIGINT), SIGTERM and SIGHUP become a stop request
// instead of ending the program, so a command can end a transfer cleanly and
// remove its partial files.

#include <signal.h>

#include <atomic>
#include <stop_token>
#include <thread>

namespace zonara {

class InterruptStop {
  public:
    // Make it before any thread of the command, which then inherit the
    // blocked signals.
    InterruptStop();
    // Gives the signals back as they were; one that came after the stop
    // request stays pending and acts then.
    ~InterruptStop();
    InterruptStop(const InterruptStop&) = delete;
    InterruptStop& operator=(const InterruptStop&) = delete;

    std::stop_token token() const { return source.get_token(); }
    bool interrupted() const { return caught.load(); }

  private:
    sigset_t watched;
    sigset_t previous;
    std::stop_source source;
    std::atomic<bool> caught{false};
    std::jthread watcher; // last: started once the rest is set
};

} // namespace zonara

#pragma once
// A small HTTP server on 127.0.0.1 that answers each request as the test says.

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace zonara::test {

struct StubRequest {
    std::string method;
    std::string target;
    std::map<std::string, std::string> headers; // names in lower case
};

struct StubResponse {
    int status = 200;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
};

// Listens on a free port from construction to destruction; one connection at
// a time, closed after each answer. It stops by itself after maxConnections.
class WeatherHttpStub {
  public:
    using Handler = std::function<StubResponse(const StubRequest&)>;
    explicit WeatherHttpStub(Handler handler);
    ~WeatherHttpStub();
    WeatherHttpStub(const WeatherHttpStub&) = delete;
    WeatherHttpStub& operator=(const WeatherHttpStub&) = delete;

    int port() const { return boundPort; }
    std::vector<StubRequest> requests() const;

    static constexpr int maxConnections = 200;

  private:
    void serve();
    void answer(int connection);

    Handler handler;
    int listener = -1;
    int boundPort = 0;
    std::atomic<bool> stopping{false};
    mutable std::mutex mutex;
    std::vector<StubRequest> seen;
    std::thread thread;
};

struct StubProcessResult {
    int exitCode = -1; // -1 when it had to be killed
    std::string output;
    std::string errors;
};

// Runs a program with exactly the given environment and no input, waiting at
// most timeoutSeconds before killing it.
StubProcessResult runWeatherProcess(const std::string& program,
                                    const std::vector<std::string>& environment,
                                    int timeoutSeconds = 30);

} // namespace zonara::test

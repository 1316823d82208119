#pragma once
// A small scripted HTTP server on 127.0.0.1 for tests: each route answers with
// whatever bytes its handler sends, and may stall until the test opens a gate.

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace zonara::test {

struct HttpRequest {
    std::string method;
    std::string target;
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;
    bool tls = false; // a TLS handshake arrived instead of HTTP

    // Case-insensitive; empty when absent.
    std::string header(std::string_view name) const;
    std::string host() const; // the Host header without its port
    std::string path() const; // the target without its query
};

class HttpConnection {
  public:
    explicit HttpConnection(int socket, class LocalHttpServer& server)
        : socket(socket), server(server) {}
    bool send(std::string_view bytes);
    // Blocks until the test opens the gate or the server stops (then false);
    // never longer than 30 seconds.
    bool waitFor(const std::string& gate);

  private:
    int socket;
    LocalHttpServer& server;
};

using HttpHandler = std::function<void(const HttpRequest&, HttpConnection&)>;

// A whole response: status line, Content-Length unless told not to (then the
// end of the body is the closed connection), "Connection: close", the extra
// header lines ("Name: value\r\n" each) and the body.
std::string httpResponse(int status, std::string_view body, std::string_view extraHeaders = "",
                         bool withLength = true);
HttpHandler reply(int status, std::string body, std::string extraHeaders = "",
                  bool withLength = true);

// One step of a scripted answer: send bytes, or wait for a gate.
struct Step {
    std::string send;
    std::string gate;
};
HttpHandler script(std::vector<Step> steps);

class LocalHttpServer {
  public:
    LocalHttpServer();
    // Opens every gate, closes every connection and joins every thread.
    ~LocalHttpServer();
    LocalHttpServer(const LocalHttpServer&) = delete;
    LocalHttpServer& operator=(const LocalHttpServer&) = delete;

    std::uint16_t port() const { return listenPort; }
    bool listening() const { return listenSocket >= 0; }

    // By path (the target without its query); a host-specific route wins over
    // one for any host. Unrouted requests get 404.
    void route(std::string path, HttpHandler handler);
    void route(std::string host, std::string path, HttpHandler handler);
    void openGate(const std::string& gate);

    std::vector<HttpRequest> requests() const;

  private:
    friend class HttpConnection;
    void acceptLoop();
    void serve(int socket);
    bool waitForGate(const std::string& gate);

    int listenSocket = -1;
    std::uint16_t listenPort = 0;
    mutable std::mutex mutex;
    std::condition_variable gateOpened;
    bool stopping = false;
    std::set<std::string> openGates;
    std::map<std::pair<std::string, std::string>, HttpHandler> routes;
    std::vector<HttpRequest> recorded;
    std::set<int> liveSockets;
    std::vector<std::thread> connections;
    std::thread acceptor;
};

} // namespace zonara::test

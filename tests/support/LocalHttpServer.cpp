#include "support/LocalHttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>

namespace zonara::test {

namespace {

constexpr std::size_t maxConnections = 200;
constexpr std::size_t maxRequestBytes = 64 * 1024;
constexpr auto requestTimeLimit = std::chrono::seconds(10);
constexpr auto gateTimeLimit = std::chrono::seconds(30);

std::string lower(std::string_view s) {
    std::string out(s);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') {
            c = char(c - 'A' + 'a');
        }
    }
    return out;
}

std::string_view trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) {
        s.remove_prefix(1);
    }
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) {
        s.remove_suffix(1);
    }
    return s;
}

std::string reason(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 204:
        return "No Content";
    case 301:
        return "Moved Permanently";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

HttpRequest parseHead(std::string_view head) {
    HttpRequest request;
    const auto lineEnd = head.find("\r\n");
    const std::string_view first = head.substr(0, lineEnd);
    const auto space1 = first.find(' ');
    const auto space2 = first.find(' ', space1 + 1);
    request.method = std::string(first.substr(0, space1));
    if (space1 != std::string_view::npos) {
        request.target = std::string(first.substr(space1 + 1, space2 - space1 - 1));
    }
    std::string_view rest = lineEnd == std::string_view::npos ? "" : head.substr(lineEnd + 2);
    while (!rest.empty()) {
        const auto end = rest.find("\r\n");
        const std::string_view line = rest.substr(0, end);
        const auto colon = line.find(':');
        if (colon != std::string_view::npos) {
            request.headers.emplace_back(std::string(trim(line.substr(0, colon))),
                                         std::string(trim(line.substr(colon + 1))));
        }
        rest = end == std::string_view::npos ? "" : rest.substr(end + 2);
    }
    return request;
}

} // namespace

std::string HttpRequest::header(std::string_view name) const {
    const std::string wanted = lower(name);
    for (const auto& [key, value] : headers) {
        if (lower(key) == wanted) {
            return value;
        }
    }
    return {};
}

std::string HttpRequest::host() const {
    const std::string value = header("Host");
    if (value.starts_with('[')) {
        return value.substr(0, value.find(']') + 1);
    }
    return value.substr(0, value.find(':'));
}

std::string HttpRequest::path() const {
    return target.substr(0, target.find('?'));
}

bool HttpConnection::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (n <= 0) {
            return false;
        }
        bytes.remove_prefix(std::size_t(n));
    }
    return true;
}

bool HttpConnection::waitFor(const std::string& gate) {
    return server.waitForGate(gate);
}

std::string httpResponse(int status, std::string_view body, std::string_view extraHeaders,
                         bool withLength) {
    std::string out = "HTTP/1.1 " + std::to_string(status) + " " + reason(status) + "\r\n";
    if (withLength) {
        out += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    }
    out += "Connection: close\r\n";
    out += extraHeaders;
    out += "\r\n";
    out += body;
    return out;
}

HttpHandler reply(int status, std::string body, std::string extraHeaders, bool withLength) {
    return [=](const HttpRequest&, HttpConnection& connection) {
        connection.send(httpResponse(status, body, extraHeaders, withLength));
    };
}

HttpHandler script(std::vector<Step> steps) {
    return [steps = std::move(steps)](const HttpRequest&, HttpConnection& connection) {
        for (const Step& step : steps) {
            if (!step.gate.empty() && !connection.waitFor(step.gate)) {
                return;
            }
            if (!step.send.empty() && !connection.send(step.send)) {
                return;
            }
        }
    };
}

LocalHttpServer::LocalHttpServer() {
    const int s = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t length = sizeof address;
    if (s < 0 || ::bind(s, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(s, 64) != 0 ||
        ::getsockname(s, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        if (s >= 0) {
            ::close(s);
        }
        return;
    }
    listenSocket = s;
    listenPort = ntohs(address.sin_port);
    acceptor = std::thread([this] { acceptLoop(); });
}

LocalHttpServer::~LocalHttpServer() {
    {
        const std::lock_guard lock(mutex);
        stopping = true;
        for (const int s : liveSockets) {
            ::shutdown(s, SHUT_RDWR);
        }
    }
    gateOpened.notify_all();
    if (acceptor.joinable()) {
        acceptor.join();
    }
    for (std::thread& t : connections) {
        t.join();
    }
    if (listenSocket >= 0) {
        ::close(listenSocket);
    }
}

void LocalHttpServer::route(std::string path, HttpHandler handler) {
    route("", std::move(path), std::move(handler));
}

void LocalHttpServer::route(std::string host, std::string path, HttpHandler handler) {
    const std::lock_guard lock(mutex);
    routes[{std::move(host), std::move(path)}] = std::move(handler);
}

void LocalHttpServer::openGate(const std::string& gate) {
    {
        const std::lock_guard lock(mutex);
        openGates.insert(gate);
    }
    gateOpened.notify_all();
}

std::vector<HttpRequest> LocalHttpServer::requests() const {
    const std::lock_guard lock(mutex);
    return recorded;
}

bool LocalHttpServer::waitForGate(const std::string& gate) {
    std::unique_lock lock(mutex);
    gateOpened.wait_for(lock, gateTimeLimit,
                        [&] { return stopping || openGates.count(gate) != 0; });
    return !stopping && openGates.count(gate) != 0;
}

void LocalHttpServer::acceptLoop() {
    while (true) {
        {
            const std::lock_guard lock(mutex);
            if (stopping) {
                return;
            }
        }
        pollfd p{listenSocket, POLLIN, 0};
        if (::poll(&p, 1, 50) <= 0) {
            continue;
        }
        const int client = ::accept4(listenSocket, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) {
            continue;
        }
        const std::lock_guard lock(mutex);
        if (stopping || connections.size() >= maxConnections) {
            ::close(client);
            continue;
        }
        liveSockets.insert(client);
        connections.emplace_back([this, client] { serve(client); });
    }
}

void LocalHttpServer::serve(int socket) {
    std::string received;
    const auto deadline = std::chrono::steady_clock::now() + requestTimeLimit;
    std::size_t headEnd = std::string::npos;
    std::size_t wanted = 0;
    bool tls = false;
    // The head, then as much body as Content-Length says.
    while (std::chrono::steady_clock::now() < deadline && received.size() < maxRequestBytes) {
        if (!received.empty() && received[0] == '\x16') {
            tls = true;
            break;
        }
        if (headEnd == std::string::npos) {
            headEnd = received.find("\r\n\r\n");
            if (headEnd != std::string::npos) {
                const HttpRequest head = parseHead(std::string_view(received).substr(0, headEnd));
                const std::string length = head.header("Content-Length");
                wanted = headEnd + 4 + (length.empty() ? 0 : std::stoul(length));
            }
        }
        if (headEnd != std::string::npos && received.size() >= wanted) {
            break;
        }
        pollfd p{socket, POLLIN, 0};
        if (::poll(&p, 1, 50) <= 0) {
            continue;
        }
        char buffer[4096];
        const ssize_t n = ::recv(socket, buffer, sizeof buffer, 0);
        if (n <= 0) {
            break;
        }
        received.append(buffer, std::size_t(n));
    }

    HttpHandler handler;
    HttpRequest request;
    if (tls) {
        request.tls = true;
    } else if (headEnd != std::string::npos) {
        request = parseHead(std::string_view(received).substr(0, headEnd));
        request.body = received.substr(headEnd + 4);
    }
    {
        const std::lock_guard lock(mutex);
        if (tls || headEnd != std::string::npos) {
            recorded.push_back(request);
        }
        if (!tls && headEnd != std::string::npos) {
            auto it = routes.find({request.host(), request.path()});
            if (it == routes.end()) {
                it = routes.find({"", request.path()});
            }
            handler = it != routes.end() ? it->second : reply(404, "not here");
        }
    }
    if (handler) {
        HttpConnection connection(socket, *this);
        handler(request, connection);
    }
    {
        const std::lock_guard lock(mutex);
        liveSockets.erase(socket);
    }
    ::shutdown(socket, SHUT_RDWR);
    ::close(socket);
}

} // namespace zonara::test

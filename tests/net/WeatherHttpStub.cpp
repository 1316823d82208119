#include "WeatherHttpStub.h"

#include <arpa/inet.h>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zonara::test {

namespace {

using Clock = std::chrono::steady_clock;

std::string lower(std::string text) {
    for (char& c : text)
        c = (c >= 'A' && c <= 'Z') ? char(c + 32) : c;
    return text;
}

std::string_view reasonFor(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 304:
        return "Not Modified";
    case 404:
        return "Not Found";
    case 500:
        return "Internal Server Error";
    default:
        return "Status";
    }
}

StubRequest parseRequest(const std::string& head) {
    StubRequest request;
    std::size_t at = head.find("\r\n");
    const std::string line = head.substr(0, at);
    const std::size_t space = line.find(' ');
    request.method = line.substr(0, space);
    request.target = line.substr(space + 1, line.rfind(' ') - space - 1);
    while (at != std::string::npos && at + 2 < head.size()) {
        const std::size_t next = head.find("\r\n", at + 2);
        const std::string header = head.substr(at + 2, next - at - 2);
        const std::size_t colon = header.find(':');
        if (colon != std::string::npos) {
            std::string value = header.substr(colon + 1);
            while (!value.empty() && value.front() == ' ')
                value.erase(0, 1);
            request.headers[lower(header.substr(0, colon))] = value;
        }
        at = next;
    }
    return request;
}

} // namespace

WeatherHttpStub::WeatherHttpStub(Handler handler) : handler(std::move(handler)) {
    listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (listener < 0 || ::bind(listener, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        ::listen(listener, 16) != 0 ||
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        if (listener >= 0)
            ::close(listener);
        throw std::runtime_error("the test server cannot listen");
    }
    boundPort = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
}

WeatherHttpStub::~WeatherHttpStub() {
    stopping = true;
    thread.join();
    ::close(listener);
}

std::vector<StubRequest> WeatherHttpStub::requests() const {
    const std::lock_guard lock(mutex);
    return seen;
}

void WeatherHttpStub::serve() {
    for (int served = 0; served < maxConnections && !stopping;) {
        pollfd waiting{listener, POLLIN, 0};
        if (::poll(&waiting, 1, 50) <= 0)
            continue;
        const int connection = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            continue;
        answer(connection);
        ::close(connection);
        ++served;
    }
}

void WeatherHttpStub::answer(int connection) {
    // The request head, read for at most five seconds and 64 kB.
    std::string head;
    const auto deadline = Clock::now() + std::chrono::seconds(5);
    while (head.find("\r\n\r\n") == std::string::npos && head.size() < 65536 && !stopping) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0)
            return;
        pollfd readable{connection, POLLIN, 0};
        if (::poll(&readable, 1, int(std::min<long long>(left.count(), 50))) <= 0)
            continue;
        char buffer[4096];
        const ssize_t got = ::recv(connection, buffer, sizeof buffer, 0);
        if (got <= 0)
            return;
        head.append(buffer, std::size_t(got));
    }
    const StubRequest request = parseRequest(head.substr(0, head.find("\r\n\r\n")));
    {
        const std::lock_guard lock(mutex);
        seen.push_back(request);
    }
    const StubResponse response = handler(request);
    std::string out = "HTTP/1.1 " + std::to_string(response.status) + " " +
                      std::string(reasonFor(response.status)) + "\r\n";
    for (const auto& [name, value] : response.headers)
        out += name + ": " + value + "\r\n";
    out +=
        "Content-Length: " + std::to_string(response.body.size()) + "\r\nConnection: close\r\n\r\n";
    if (request.method != "HEAD")
        out += response.body;
    std::size_t sent = 0;
    while (sent < out.size()) {
        const ssize_t n = ::send(connection, out.data() + sent, out.size() - sent, MSG_NOSIGNAL);
        if (n <= 0)
            return;
        sent += std::size_t(n);
    }
}

StubProcessResult runWeatherProcess(const std::string& program,
                                    const std::vector<std::string>& environment,
                                    int timeoutSeconds) {
    StubProcessResult result;
    int out[2];
    int err[2];
    if (::pipe2(out, O_CLOEXEC) != 0)
        return result;
    if (::pipe2(err, O_CLOEXEC) != 0) {
        ::close(out[0]);
        ::close(out[1]);
        return result;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], 1);
    posix_spawn_file_actions_adddup2(&actions, err[1], 2);
    std::vector<char*> argv = {const_cast<char*>(program.c_str()), nullptr};
    std::vector<char*> envp;
    for (const std::string& entry : environment)
        envp.push_back(const_cast<char*>(entry.c_str()));
    envp.push_back(nullptr);
    pid_t child = -1;
    const int spawned =
        posix_spawn(&child, program.c_str(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    ::close(err[1]);
    if (spawned != 0) {
        ::close(out[0]);
        ::close(err[0]);
        return result;
    }
    const auto deadline = Clock::now() + std::chrono::seconds(timeoutSeconds);
    pollfd pipes[2] = {{out[0], POLLIN, 0}, {err[0], POLLIN, 0}};
    std::string* sinks[2] = {&result.output, &result.errors};
    int open = 2;
    bool killed = false;
    while (open > 0) {
        if (Clock::now() > deadline) {
            ::kill(child, SIGKILL);
            killed = true;
            break;
        }
        if (::poll(pipes, 2, 100) <= 0)
            continue;
        for (int i = 0; i < 2; ++i) {
            if (pipes[i].fd < 0 || !(pipes[i].revents & (POLLIN | POLLHUP)))
                continue;
            char buffer[4096];
            const ssize_t got = ::read(pipes[i].fd, buffer, sizeof buffer);
            if (got > 0) {
                sinks[i]->append(buffer, std::size_t(got));
            } else {
                ::close(pipes[i].fd);
                pipes[i].fd = -1;
                --open;
            }
        }
    }
    for (const pollfd& pipe : pipes) {
        if (pipe.fd >= 0)
            ::close(pipe.fd);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!killed && WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    return result;
}

} // namespace zonara::test

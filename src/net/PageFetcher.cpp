#include "net/PageFetcher.h"

#include <array>
#include <cstring>

#include "net/HttpTransfer.h"
#include "net/TransferTarget.h"

namespace zonara {

PageFetcher::PageFetcher(NetworkConfig network) : network(network) {}

PageFetcher::~PageFetcher() {
    Close();
}

bool PageFetcher::Open(std::string_view hostName) {
    Close();
    if (network.offline) {
        return false;
    }
    auto made = std::make_unique<HttpTransfer>();
    if (!made->ready()) {
        return false;
    }
    {
        const std::lock_guard lock(guard);
        agent = std::move(made);
    }
    if (!validHostName(hostName) || network.httpPort == 0) {
        return false;
    }
    host = std::string(hostName);
    return true;
}

bool PageFetcher::Get(std::string_view path, std::stop_token stop) {
    if (!agent || host.empty()) {
        return false;
    }
    const std::stop_callback onStop(stop, [this] { abort(); });
    HttpTransfer::Request request;
    request.url = "http://" + host + ":" + std::to_string(network.httpPort) +
                  (path.starts_with('/') ? "" : "/") + std::string(path);
    request.userAgent = std::string(userAgent);
    request.body = "OK"; // a body on a GET: sent as it always was
    request.direct = true;
    if (agent->begin(request, network.timeout) != HttpTransfer::Begin::Ok ||
        agent->status() != 200) {
        agent->end();
        return false;
    }

    text.clear();
    std::array<char, bufferSize + 1> chunk{};
    while (true) {
        const HttpTransfer::Read piece = agent->readFull(chunk.data(), bufferSize, network.timeout);
        if (piece.bytes == 0) {
            break;
        }
        chunk[piece.bytes] = '\0';
        const std::size_t length = std::strlen(chunk.data());
        // A piece that would not fit beside the terminating NUL is dropped.
        if (text.size() + length < bufferSize) {
            text.append(chunk.data(), length);
        }
    }
    agent->end();
    return true;
}

void PageFetcher::Close() {
    std::unique_ptr<HttpTransfer> old;
    {
        const std::lock_guard lock(guard);
        old = std::move(agent);
    }
    host.clear();
}

void PageFetcher::abort() {
    const std::lock_guard lock(guard);
    if (agent) {
        agent->abort();
    }
}

} // namespace zonara

#include "net/HttpTransfer.h"

#include <curl/curl.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace zonara {

namespace {

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return int(std::clamp<long long>(left, 0, 1000 * 1000));
}

// The value of a "Content-Length:" header line; nullopt for any other line or
// a value that is not a plain number.
std::optional<std::uint64_t> lengthIn(std::string_view line) {
    constexpr std::string_view name = "content-length:";
    if (line.size() < name.size()) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = line[i];
        if ((c >= 'A' && c <= 'Z' ? char(c + 32) : c) != name[i]) {
            return std::nullopt;
        }
    }
    line.remove_prefix(name.size());
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) {
        line.remove_prefix(1);
    }
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n' || line.back() == ' ')) {
        line.remove_suffix(1);
    }
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    if (error != std::errc() || end != line.data() + line.size() || line.empty()) {
        return std::nullopt;
    }
    return value;
}

} // namespace

HttpTransfer::HttpTransfer() : easy(curl_easy_init()), multi(curl_multi_init()) {}

HttpTransfer::~HttpTransfer() {
    end();
    if (multi != nullptr) {
        curl_multi_cleanup(multi);
    }
    if (easy != nullptr) {
        curl_easy_cleanup(easy);
    }
    curl_slist_free_all(static_cast<curl_slist*>(headerList));
}

std::size_t HttpTransfer::onBody(char* data, std::size_t, std::size_t size, void* self) {
    auto* t = static_cast<HttpTransfer*>(self);
    t->headersDone = true;
    if (t->pendingAt < t->pending.size()) {
        t->paused = true; // libcurl keeps the data and hands it over again on resume
        return CURL_WRITEFUNC_PAUSE;
    }
    t->pending.assign(data, data + size);
    t->pendingAt = 0;
    return size;
}

std::size_t HttpTransfer::onHeader(char* data, std::size_t, std::size_t size, void* self) {
    auto* t = static_cast<HttpTransfer*>(self);
    const std::string_view line(data, size);
    if (line.starts_with("HTTP/")) {
        t->lengthHeader.reset(); // a new response: an interim one's headers do not count
    } else if (auto length = lengthIn(line)) {
        t->lengthHeader = length;
    }
    if (line == "\r\n" || line == "\n") {
        long code = 0;
        curl_easy_getinfo(t->easy, CURLINFO_RESPONSE_CODE, &code);
        // An interim response (100 Continue) is followed by the real one.
        if (code < 100 || code >= 200) {
            t->headersDone = true;
            t->statusCode = code;
        }
    }
    return size;
}

void HttpTransfer::perform() {
    int running = 0;
    curl_multi_perform(multi, &running);
    int left = 0;
    while (CURLMsg* message = curl_multi_info_read(multi, &left)) {
        if (message->msg == CURLMSG_DONE) {
            done = true;
            doneCode = message->data.result;
        }
    }
}

void HttpTransfer::drive(Clock::time_point deadline) {
    perform();
    // Waits only while there is nothing to hand over; abort wakes the wait.
    if (!done && pendingAt >= pending.size() && !abortRequested.load()) {
        curl_multi_poll(multi, nullptr, 0, millisecondsUntil(deadline), nullptr);
        perform();
    }
}

HttpTransfer::Begin HttpTransfer::begin(const Request& request, std::chrono::milliseconds limit) {
    end();
    if (!ready()) {
        return Begin::Failed;
    }
    headersDone = done = paused = false;
    doneCode = CURLE_OK;
    statusCode = 0;
    lengthHeader.reset();
    pending.clear();
    pendingAt = 0;

    curl_easy_reset(easy); // keeps the open connection for the next request
    curl_easy_setopt(easy, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(easy, CURLOPT_USERAGENT, request.userAgent.c_str());
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &HttpTransfer::onBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &HttpTransfer::onHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
    if (request.direct) {
        curl_easy_setopt(easy, CURLOPT_PROXY, "");
    }
    if (request.user != nullptr) {
        curl_easy_setopt(easy, CURLOPT_USERNAME, request.user);
    }
    if (request.password != nullptr) {
        curl_easy_setopt(easy, CURLOPT_PASSWORD, request.password);
    }
    curl_slist_free_all(static_cast<curl_slist*>(headerList));
    headerList = nullptr;
    if (!request.body.empty()) {
        // A GET that carries a body: libcurl would make it a form POST.
        body = request.body;
        curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE, long(body.size()));
        curl_easy_setopt(easy, CURLOPT_POSTFIELDS, body.c_str());
        curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, "GET");
        headerList = curl_slist_append(nullptr, "Content-Type:");
        curl_easy_setopt(easy, CURLOPT_HTTPHEADER, static_cast<curl_slist*>(headerList));
    }
    if (curl_multi_add_handle(multi, easy) != CURLM_OK) {
        return Begin::Failed;
    }
    added = true;

    const auto deadline = Clock::now() + limit;
    while (!headersDone && !done) {
        if (abortRequested.load()) {
            return Begin::Aborted;
        }
        if (Clock::now() >= deadline) {
            return Begin::TimedOut;
        }
        drive(deadline);
    }
    if (headersDone) {
        return Begin::Ok;
    }
    if (doneCode == CURLE_WEIRD_SERVER_REPLY || doneCode == CURLE_UNSUPPORTED_PROTOCOL) {
        return Begin::Unreadable;
    }
    return Begin::Failed;
}

HttpTransfer::Read HttpTransfer::read(char* buffer, std::size_t size,
                                      std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    while (true) {
        if (pendingAt < pending.size()) {
            const std::size_t n = std::min(size, pending.size() - pendingAt);
            std::memcpy(buffer, pending.data() + pendingAt, n);
            pendingAt += n;
            return {Result::Data, n};
        }
        if (abortRequested.load()) {
            return {Result::Aborted, 0};
        }
        if (paused) {
            paused = false;
            curl_easy_pause(easy, CURLPAUSE_CONT); // may hand over the kept data at once
            continue;
        }
        if (done) {
            return {doneCode == CURLE_OK ? Result::End : Result::Failed, 0};
        }
        if (!added || Clock::now() >= deadline) {
            return {added ? Result::TimedOut : Result::Failed, 0};
        }
        drive(deadline);
    }
}

HttpTransfer::Read HttpTransfer::readFull(char* buffer, std::size_t size,
                                          std::chrono::milliseconds limit) {
    std::size_t filled = 0;
    while (filled < size) {
        const Read piece = read(buffer + filled, size - filled, limit);
        if (piece.result != Result::Data) {
            return {filled > 0 ? Result::Data : piece.result, filled};
        }
        filled += piece.bytes;
    }
    return {Result::Data, filled};
}

void HttpTransfer::end() {
    if (added) {
        curl_multi_remove_handle(multi, easy);
        added = false;
    }
}

void HttpTransfer::abort() {
    abortRequested.store(true);
    if (multi != nullptr) {
        curl_multi_wakeup(multi);
    }
}

} // namespace zonara

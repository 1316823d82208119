#pragma once
// One HTTP GET at a time over libcurl's multi interface, read piece by piece
// with a time limit on each wait; another thread may abort it at any moment.

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

typedef void CURL;
typedef void CURLM;

namespace zonara {

class HttpTransfer {
  public:
    struct Request {
        std::string url;
        std::string userAgent;
        const char* user = nullptr; // credentials, each only when not null
        const char* password = nullptr;
        std::string body;    // sent with the GET when not empty
        bool direct = false; // never through a proxy from the environment
    };

    enum class Begin { Ok, Failed, Unreadable, TimedOut, Aborted };
    enum class Result { Data, End, Failed, TimedOut, Aborted };
    struct Read {
        Result result = Result::Failed;
        std::size_t bytes = 0;
    };

    HttpTransfer();
    ~HttpTransfer();
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;

    // False when libcurl could not make its handles.
    bool ready() const { return easy != nullptr && multi != nullptr; }

    // Sends the request and waits for the response's headers: Failed when no
    // response came (no connection, nothing sent back), Unreadable when what
    // came is not an HTTP response.
    Begin begin(const Request& request, std::chrono::milliseconds limit);
    long status() const { return statusCode; }
    // The Content-Length header's value, when the response has a valid one.
    std::optional<std::uint64_t> contentLength() const { return lengthHeader; }

    // Waits at most the limit for body bytes and gives up to size of them;
    // End once the whole body was given, Failed when the transfer broke.
    Read read(char* buffer, std::size_t size, std::chrono::milliseconds limit);
    // As read, but waits (each wait within the limit) until the buffer is full
    // or the body ends; a wait that runs out ends the piece.
    Read readFull(char* buffer, std::size_t size, std::chrono::milliseconds limit);

    // Ends the current request; the connection may serve the next one.
    void end();
    // From any thread: every wait of this transfer, now or later, returns Aborted.
    void abort();

  private:
    static std::size_t onBody(char* data, std::size_t, std::size_t size, void* self);
    static std::size_t onHeader(char* data, std::size_t, std::size_t size, void* self);
    // Lets libcurl work, and notes the transfer's end.
    void perform();
    // One step of a wait that ends by the deadline.
    void drive(std::chrono::steady_clock::time_point deadline);

    CURL* easy = nullptr;
    CURLM* multi = nullptr;
    std::atomic<bool> abortRequested{false};
    bool added = false;
    bool headersDone = false;
    bool done = false;
    bool paused = false;
    int doneCode = 0; // the CURLcode the transfer ended with
    long statusCode = 0;
    std::optional<std::uint64_t> lengthHeader; // of the final response
    // What libcurl handed over and the reader has not taken yet: at most one
    // of libcurl's own buffers; further data waits inside libcurl (paused).
    std::vector<char> pending;
    std::size_t pendingAt = 0;
    std::string body;
    void* headerList = nullptr;
};

} // namespace zonara

#pragma once
// A plain GET client that keeps a connection to one host open and reads a
// response of at most 4095 characters.

#include <cstddef>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <string_view>

#include "net/Config.h"

namespace zonara {

class HttpTransfer;

class PageFetcher {
  public:
    static constexpr std::size_t bufferSize = 4096;
    static constexpr std::string_view userAgent = "Microsoft Internet Explorer";

    explicit PageFetcher(NetworkConfig network = {});
    ~PageFetcher();
    PageFetcher(const PageFetcher&) = delete;
    PageFetcher& operator=(const PageFetcher&) = delete;

    // Closes what was open, then prepares a connection to the host on the
    // configured HTTP port (never a proxy). False offline or for a host that
    // is not a valid name.
    bool Open(std::string_view host);
    // True when the request was sent and answered with status 200 exactly;
    // the body is then in response(), as far as it fitted. A stop request
    // ends it as abort() does.
    bool Get(std::string_view path, std::stop_token stop = {});
    void Close();
    // From any thread: the Get in progress ends; so does every later one until
    // the next Open.
    void abort();

    // The body's text up to its first NUL, with every 4096-byte piece that
    // would not fit below 4096 characters left out.
    const std::string& response() const { return text; }

  private:
    NetworkConfig network;
    std::mutex guard; // the agent, between Get and abort
    std::unique_ptr<HttpTransfer> agent;
    std::string host; // the connection: empty when none
    std::string text;
};

} // namespace zonara

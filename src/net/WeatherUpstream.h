#pragma once
// One GET to the forecast provider, and the libcurl client that makes it.

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace zonara {

struct UpstreamRequest {
    std::string url;
    std::string userAgent;
    std::string ifModifiedSince; // sent when not empty
};

struct UpstreamAnswer {
    bool answered = false; // a status line came back
    long status = 0;
    std::string body;
    std::string expires; // the header values as sent, or empty
    std::string lastModified;
    std::string error; // why nothing came back
};

class WeatherUpstream {
  public:
    virtual ~WeatherUpstream() = default;
    virtual UpstreamAnswer get(const UpstreamRequest& request) = 0;
};

// HTTP and HTTPS with libcurl; the URL's own port is used unless a port is
// given. Bodies beyond maxBody bytes fail the transfer, and so does a stop
// request while one runs.
class CurlWeatherUpstream final : public WeatherUpstream {
  public:
    explicit CurlWeatherUpstream(long timeoutSeconds = 30, std::optional<long> port = std::nullopt,
                                 std::stop_token stop = {})
        : timeoutSeconds(timeoutSeconds), port(port), stop(std::move(stop)) {}
    UpstreamAnswer get(const UpstreamRequest& request) override;

    static constexpr std::size_t maxBody = 4 * 1024 * 1024;

  private:
    long timeoutSeconds;
    std::optional<long> port;
    std::stop_token stop;
};

// An HTTP date ("Sun, 06 Nov 1994 08:49:37 GMT" and the older forms) as
// seconds since 1970; nothing when it does not read as one.
std::optional<std::int64_t> parseHttpDate(std::string_view text);
// The preferred HTTP date form of an instant.
std::string formatHttpDate(std::int64_t unixSeconds);

} // namespace zonara

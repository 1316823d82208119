#include "net/WeatherUpstream.h"

#include <array>
#include <cstdio>
#include <memory>

#include <curl/curl.h>

#include "core/SystemTime.h"

namespace zonara {

namespace {

struct Transfer {
    std::string body;
    std::string expires;
    std::string lastModified;
    bool tooLong = false;
};

std::size_t onBody(char* data, std::size_t size, std::size_t count, void* user) {
    auto& transfer = *static_cast<Transfer*>(user);
    const std::size_t bytes = size * count;
    if (transfer.body.size() + bytes > CurlWeatherUpstream::maxBody) {
        transfer.tooLong = true;
        return 0; // ends the transfer
    }
    transfer.body.append(data, bytes);
    return bytes;
}

std::string trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' '))
        text.remove_suffix(1);
    return std::string(text);
}

bool headerIs(std::string_view line, std::string_view name) {
    if (line.size() <= name.size() || line[name.size()] != ':')
        return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; };
        if (lower(line[i]) != lower(name[i]))
            return false;
    }
    return true;
}

std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* user) {
    auto& transfer = *static_cast<Transfer*>(user);
    const std::string_view line(data, size * count);
    // A redirect or an interim answer starts a new header block.
    if (line.starts_with("HTTP/")) {
        transfer.expires.clear();
        transfer.lastModified.clear();
    } else if (headerIs(line, "expires")) {
        transfer.expires = trimmed(line.substr(8));
    } else if (headerIs(line, "last-modified")) {
        transfer.lastModified = trimmed(line.substr(14));
    }
    return size * count;
}

// Called by libcurl while a transfer runs; a non-zero answer aborts it.
int onProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return static_cast<const std::stop_token*>(user)->stop_requested() ? 1 : 0;
}

struct EasyDeleter {
    void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct ListDeleter {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

constexpr std::array<const char*, 7> weekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

} // namespace

UpstreamAnswer CurlWeatherUpstream::get(const UpstreamRequest& request) {
    UpstreamAnswer answer;
    const std::unique_ptr<CURL, EasyDeleter> handle(curl_easy_init());
    if (!handle) {
        answer.error = "libcurl did not start";
        return answer;
    }
    Transfer transfer;
    std::unique_ptr<curl_slist, ListDeleter> headers;
    if (!request.ifModifiedSince.empty()) {
        const std::string line = "If-Modified-Since: " + request.ifModifiedSince;
        headers.reset(curl_slist_append(nullptr, line.c_str()));
    }
    CURL* h = handle.get();
    curl_easy_setopt(h, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(h, CURLOPT_USERAGENT, request.userAgent.c_str());
    curl_easy_setopt(h, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(h, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(h, CURLOPT_ACCEPT_ENCODING, ""); // whatever libcurl can decode
    curl_easy_setopt(h, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(h, CURLOPT_MAXREDIRS, 3L);
    curl_easy_setopt(h, CURLOPT_TIMEOUT, timeoutSeconds);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    if (port)
        curl_easy_setopt(h, CURLOPT_PORT, *port);
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(h, CURLOPT_HEADERFUNCTION, onHeader);
    curl_easy_setopt(h, CURLOPT_HEADERDATA, &transfer);
    if (stop.stop_possible()) {
        curl_easy_setopt(h, CURLOPT_NOPROGRESS, 0L);
        curl_easy_setopt(h, CURLOPT_XFERINFOFUNCTION, onProgress);
        curl_easy_setopt(h, CURLOPT_XFERINFODATA, &stop);
    }
    const CURLcode result = curl_easy_perform(h);
    if (result != CURLE_OK) {
        answer.error = transfer.tooLong                      ? "answer too long"
                       : result == CURLE_ABORTED_BY_CALLBACK ? "stopped"
                                                             : curl_easy_strerror(result);
        return answer;
    }
    answer.answered = true;
    curl_easy_getinfo(h, CURLINFO_RESPONSE_CODE, &answer.status);
    answer.body = std::move(transfer.body);
    answer.expires = std::move(transfer.expires);
    answer.lastModified = std::move(transfer.lastModified);
    return answer;
}

std::optional<std::int64_t> parseHttpDate(std::string_view text) {
    const std::string copy(text);
    const time_t t = curl_getdate(copy.c_str(), nullptr);
    if (t == time_t(-1))
        return std::nullopt;
    return std::int64_t(t);
}

std::string formatHttpDate(std::int64_t unixSeconds) {
    const SystemTime t = systemTimeFromUnix(unixSeconds);
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%s, %02d %s %04d %02d:%02d:%02d GMT",
                  weekdays[std::size_t(t.dayOfWeek)], t.day, months[std::size_t(t.month - 1)],
                  t.year, t.hour, t.minute, t.second);
    return buffer;
}

} // namespace zonara

#include "net/TransferTarget.h"

#include <arpa/inet.h>
#include <curl/curl.h>

#include <memory>

namespace zonara {

namespace {

constexpr std::size_t crackBuffer = 1024; // characters, with the terminating one

struct UrlDeleter {
    void operator()(CURLU* url) const { curl_url_cleanup(url); }
};
struct PartDeleter {
    void operator()(char* part) const { curl_free(part); }
};
using Part = std::unique_ptr<char, PartDeleter>;

Part getPart(CURLU* url, CURLUPart which) {
    char* text = nullptr;
    if (curl_url_get(url, which, &text, 0) != CURLUE_OK) {
        return nullptr;
    }
    return Part(text);
}

bool validLabel(std::string_view label) {
    if (label.empty() || label.size() > 63 || label.front() == '-' || label.back() == '-') {
        return false;
    }
    for (const char c : label) {
        const bool ok =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        if (!ok) {
            return false;
        }
    }
    return true;
}

} // namespace

std::optional<TransferTarget> crackUrl(std::string_view url) {
    std::unique_ptr<CURLU, UrlDeleter> handle(curl_url());
    if (!handle || url.find('\0') != std::string_view::npos ||
        curl_url_set(handle.get(), CURLUPART_URL, std::string(url).c_str(), 0) != CURLUE_OK) {
        return std::nullopt;
    }
    const Part scheme = getPart(handle.get(), CURLUPART_SCHEME);
    const Part host = getPart(handle.get(), CURLUPART_HOST);
    const Part path = getPart(handle.get(), CURLUPART_PATH);
    if (!scheme || !host || !path) {
        return std::nullopt;
    }
    const std::string_view schemeText = scheme.get();
    if (schemeText != "http" && schemeText != "https") {
        return std::nullopt;
    }
    TransferTarget target;
    target.host = host.get();
    target.path = path.get();
    if (const Part query = getPart(handle.get(), CURLUPART_QUERY)) {
        target.path += '?';
        target.path += query.get();
    }
    target.https = schemeText == "https";
    if (target.host.empty() || target.host.size() >= crackBuffer ||
        target.path.size() >= crackBuffer) {
        return std::nullopt;
    }
    return target;
}

bool validHostName(std::string_view host) {
    if (host.size() >= 2 && host.front() == '[' && host.back() == ']') {
        in6_addr v6{};
        return inet_pton(AF_INET6, std::string(host.substr(1, host.size() - 2)).c_str(), &v6) == 1;
    }
    if (host.ends_with('.')) {
        host.remove_suffix(1); // the absolute form
    }
    if (host.empty() || host.size() > 253) {
        return false;
    }
    while (true) {
        const auto dot = host.find('.');
        if (!validLabel(host.substr(0, dot))) {
            return false;
        }
        if (dot == std::string_view::npos) {
            return true;
        }
        host.remove_prefix(dot + 1);
    }
}

std::string transferUrl(const TransferTarget& target, bool secure, std::uint16_t port) {
    return std::string(secure ? "https://" : "http://") + target.host + ":" + std::to_string(port) +
           target.path;
}

} // namespace zonara

#pragma once
// A URL split into what a transfer needs: host, path and whether it is secure.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zonara {

struct TransferTarget {
    std::string host; // as written in the URL; IPv6 addresses keep their brackets
    std::string path; // with the query, always starting with '/'
    bool https = false;
};

// nullopt for what is not an http or https URL, or whose host or path would
// not fit a 1024-character buffer. The URL's port is not kept: transfers use
// the configured ports.
std::optional<TransferTarget> crackUrl(std::string_view url);

// A host a connection can be made to: an IP address, or a name of dot-separated
// labels of letters, digits and inner hyphens, at most 253 characters.
bool validHostName(std::string_view host);

// The URL a transfer asks for: scheme by secure mode, the configured port.
std::string transferUrl(const TransferTarget& target, bool secure, std::uint16_t port);

} // namespace zonara

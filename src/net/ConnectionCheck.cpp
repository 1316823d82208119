#include "net/ConnectionCheck.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

#include <algorithm>

namespace zonara {

namespace {

std::string lowerCase(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return char(c >= 'A' && c <= 'Z' ? c + 32 : c); });
    return out;
}

bool qualifies(const InterfaceState& i, bool loopbackHost) {
    return i.up && i.hasAddress && (!i.loopback || loopbackHost);
}

} // namespace

bool isLoopbackHost(std::string_view host) {
    std::string name = lowerCase(host);
    if (name.size() >= 2 && name.front() == '[' && name.back() == ']') {
        name = name.substr(1, name.size() - 2);
    }
    if (name.ends_with('.')) {
        name.pop_back(); // the absolute form names the same host
    }
    if (name == "localhost" || name.ends_with(".localhost")) {
        return true;
    }
    in_addr v4{};
    if (inet_pton(AF_INET, name.c_str(), &v4) == 1) {
        return (ntohl(v4.s_addr) >> 24) == 127;
    }
    in6_addr v6{};
    return inet_pton(AF_INET6, name.c_str(), &v6) == 1 && IN6_IS_ADDR_LOOPBACK(&v6);
}

std::string usableInterface(const std::vector<InterfaceState>& interfaces, bool loopbackHost,
                            std::string_view preferred) {
    const InterfaceState* chosen = nullptr;
    for (const InterfaceState& i : interfaces) {
        if (!qualifies(i, loopbackHost)) {
            continue;
        }
        if (i.name == preferred) {
            return i.name;
        }
        if (chosen == nullptr) {
            chosen = &i;
        }
    }
    return chosen != nullptr ? chosen->name : std::string();
}

std::vector<InterfaceState> listInterfaces() {
    std::vector<InterfaceState> out;
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0) {
        return out;
    }
    // getifaddrs gives one entry per address (and one per link); merge them by name.
    for (const ifaddrs* a = list; a != nullptr; a = a->ifa_next) {
        auto it = std::find_if(out.begin(), out.end(),
                               [&](const InterfaceState& s) { return s.name == a->ifa_name; });
        if (it == out.end()) {
            out.push_back({a->ifa_name, false, false, false});
            it = out.end() - 1;
        }
        const unsigned flags = a->ifa_flags;
        it->up = it->up || ((flags & IFF_UP) != 0 && (flags & IFF_RUNNING) != 0);
        it->loopback = it->loopback || (flags & IFF_LOOPBACK) != 0;
        const bool ip = a->ifa_addr != nullptr &&
                        (a->ifa_addr->sa_family == AF_INET || a->ifa_addr->sa_family == AF_INET6);
        it->hasAddress = it->hasAddress || ip;
    }
    freeifaddrs(list);
    return out;
}

bool EnsureInternetConnection(ConnectionSlot& slot, const NetworkConfig& network,
                              std::string_view host) {
    if (network.offline || host.empty()) {
        slot.interfaceName.clear();
        return false;
    }
    slot.interfaceName =
        usableInterface(listInterfaces(), isLoopbackHost(host), slot.interfaceName);
    return !slot.interfaceName.empty();
}

} // namespace zonara

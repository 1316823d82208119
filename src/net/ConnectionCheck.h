#pragma once
// Makes sure the machine can reach a host before any transfer of a run.

#include <string>
#include <string_view>
#include <vector>

#include "net/Config.h"

namespace zonara {

// Kept by the caller for one run and passed to every check of it: the
// interface that carried the last successful check.
struct ConnectionSlot {
    std::string interfaceName;
};

struct InterfaceState {
    std::string name;
    bool up = false; // up and running
    bool loopback = false;
    bool hasAddress = false; // an IPv4 or IPv6 address is assigned
};

// True for "localhost" and names under it, IPv4 127.0.0.0/8 and IPv6 ::1.
bool isLoopbackHost(std::string_view host);

// The interface a connection to the host can use, or empty: a non-loopback
// interface that is up with an address; loopback only for a loopback host.
// The slot's interface is preferred while it still qualifies.
std::string usableInterface(const std::vector<InterfaceState>& interfaces, bool loopbackHost,
                            std::string_view preferred);

std::vector<InterfaceState> listInterfaces();

// False when offline, when the host is empty, or when no interface can
// carry a connection to it; the slot then keeps nothing.
bool EnsureInternetConnection(ConnectionSlot& slot, const NetworkConfig& network,
                              std::string_view host);

} // namespace zonara

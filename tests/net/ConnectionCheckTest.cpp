#include <gtest/gtest.h>

#include "net/ConnectionCheck.h"
#include "net/TransferTarget.h"

namespace zonara {

TEST(ConnectionCheck, KnowsLoopbackHosts) {
    const std::pair<const char*, bool> rows[] = {
        {"localhost", true},
        {"LOCALHOST.", true},
        {"update.localhost", true},
        {"127.0.0.1", true},
        {"127.200.3.4", true},
        {"::1", true},
        {"[::1]", true},
        {"128.0.0.1", false},
        {"10.0.0.1", false},
        {"::2", false},
        {"localhost.example.org", false},
        {"example.org", false},
        {"", false},
    };
    for (const auto& [host, loopback] : rows) {
        EXPECT_EQ(isLoopbackHost(host), loopback) << host;
    }
}

TEST(ConnectionCheck, ChoosesAnInterfaceThatCanCarryTheConnection) {
    const InterfaceState lo{"lo", true, true, true};
    const InterfaceState eth{"eth0", true, false, true};
    const InterfaceState wlan{"wlan0", true, false, true};
    const InterfaceState down{"eth1", false, false, true};
    const InterfaceState bare{"tun0", true, false, false};
    struct Row {
        std::vector<InterfaceState> interfaces;
        bool loopbackHost;
        const char* preferred;
        const char* expected;
    };
    const Row rows[] = {
        {{lo}, false, "", ""},                  // loopback alone reaches no other host
        {{lo}, true, "", "lo"},                 // but does reach itself
        {{lo, eth}, false, "", "eth0"},         //
        {{down, bare}, false, "", ""},          // down, or up without an address
        {{eth, wlan}, false, "wlan0", "wlan0"}, // the slot's interface while it lasts
        {{eth, down}, false, "eth1", "eth0"},   // and another once it is gone
        {{}, true, "", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(usableInterface(row.interfaces, row.loopbackHost, row.preferred), row.expected)
            << row.expected << " preferred " << row.preferred;
    }
}

TEST(ConnectionCheck, RefusesWhenOfflineOrWithoutAHost) {
    ConnectionSlot slot;
    NetworkConfig network;
    EXPECT_TRUE(EnsureInternetConnection(slot, network, "127.0.0.1"));
    EXPECT_EQ(slot.interfaceName, "lo");
    EXPECT_TRUE(EnsureInternetConnection(slot, network, "127.0.0.1")); // the same slot again
    EXPECT_FALSE(EnsureInternetConnection(slot, network, ""));
    EXPECT_TRUE(slot.interfaceName.empty());
    network.offline = true;
    EXPECT_FALSE(EnsureInternetConnection(slot, network, "127.0.0.1"));
}

TEST(TransferTarget, SplitsUrlsIntoHostAndPath) {
    struct Row {
        const char* url;
        bool cracked;
        const char* host;
        const char* path;
        bool https;
    };
    const std::string longPath = "http://h/" + std::string(1022, 'a');
    const std::string tooLong = "http://h/" + std::string(1023, 'a');
    const Row rows[] = {
        {"http://updates.example.org/zonara/city40.dat", true, "updates.example.org",
         "/zonara/city40.dat", false},
        {"http://127.0.0.1:8080/a?b=1#frag", true, "127.0.0.1", "/a?b=1", false},
        {"HTTPS://Example.org", true, "Example.org", "/", true},
        {"http://[::1]:99/x", true, "[::1]", "/x", false},
        {longPath.c_str(), true, "h", longPath.c_str() + 8, false},
        {tooLong.c_str(), false, "", "", false},
        {"ftp://example.org/x", false, "", "", false},
        {"not a url", false, "", "", false},
        {"updates.example.org/zonara", false, "", "", false},
        {"", false, "", "", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.url).substr(0, 60));
        const auto target = crackUrl(row.url);
        ASSERT_EQ(target.has_value(), row.cracked);
        if (target) {
            EXPECT_EQ(target->host, row.host);
            EXPECT_EQ(target->path, row.path);
            EXPECT_EQ(target->https, row.https);
        }
    }
}

TEST(TransferTarget, AcceptsOnlyHostNamesAConnectionCanBeMadeTo) {
    const std::pair<std::string, bool> rows[] = {
        {"example.org", true},
        {"a-b.example.org.", true},
        {"127.0.0.1", true},
        {"[::1]", true},
        {"x", true},
        {"bad..host", false},
        {"-lead.example", false},
        {"trail-.example", false},
        {"under_score", false},
        {"[nonsense]", false},
        {"", false},
        {std::string(64, 'a'), false},
        {std::string(63, 'a') + ".org", true},
    };
    for (const auto& [host, valid] : rows) {
        EXPECT_EQ(validHostName(host), valid) << host;
    }
}

} // namespace zonara

#include <gtest/gtest.h>

#include "net/PageFetcher.h"
#include "support/LocalHttpServer.h"

namespace zonara {

using test::reply;

namespace {

class PageFetcherTest : public ::testing::Test {
  protected:
    NetworkConfig network() const {
        NetworkConfig n;
        n.httpPort = server.port();
        n.timeout = std::chrono::seconds(5);
        return n;
    }

    test::LocalHttpServer server;
};

std::string textOf(std::size_t size, char first) {
    std::string text(size, ' ');
    for (std::size_t i = 0; i < size; ++i) {
        text[i] = char(first + i % 20);
    }
    return text;
}

} // namespace

TEST_F(PageFetcherTest, KeepsOnlyThe4096BytePiecesThatFitBesideTheEnd) {
    const std::string a = textOf(4096, 'a');
    const std::string b = textOf(4096, 'A');
    struct Row {
        const char* name;
        std::string body;
        std::string expected;
    };
    const Row rows[] = {
        {"empty", "", ""},
        {"short", "<root>short</root>", "<root>short</root>"},
        {"4095 fits", a.substr(0, 4095), a.substr(0, 4095)},
        {"4096 never fits", a, ""},
        {"5000 as 4096 + 904", a + b.substr(0, 904), b.substr(0, 904)},
        {"two full pieces and 10", a + b + "0123456789", "0123456789"},
        {"text ends at a NUL", std::string("abc\0def", 7), "abc"},
    };
    PageFetcher fetcher(network());
    ASSERT_TRUE(fetcher.Open("127.0.0.1"));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string path = "/page/" + std::to_string(&row - rows);
        server.route(path, reply(200, row.body));
        ASSERT_TRUE(fetcher.Get(path));
        EXPECT_EQ(fetcher.response(), row.expected);
    }
}

TEST_F(PageFetcherTest, CountsOnlyStatus200AsSuccess) {
    const std::pair<int, bool> rows[] = {{200, true},  {204, false}, {299, false},
                                         {301, false}, {404, false}, {500, false}};
    PageFetcher fetcher(network());
    ASSERT_TRUE(fetcher.Open("127.0.0.1"));
    for (const auto& [status, success] : rows) {
        const std::string path = "/status/" + std::to_string(status);
        server.route(path, reply(status, "<root/>"));
        EXPECT_EQ(fetcher.Get(path), success) << status;
    }
}

TEST_F(PageFetcherTest, SendsOKWithTheGetUnderItsOwnAgent) {
    server.route("/cgi-bin/hamweather/hw3.pl", reply(200, "<root/>"));
    PageFetcher fetcher(network());
    ASSERT_TRUE(fetcher.Open("127.0.0.1"));
    ASSERT_TRUE(fetcher.Get("/cgi-bin/hamweather/hw3.pl?config=&pands=London%2C+GB"));
    const test::HttpRequest request = server.requests().back();
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.target, "/cgi-bin/hamweather/hw3.pl?config=&pands=London%2C+GB");
    EXPECT_EQ(request.body, "OK");
    EXPECT_EQ(request.header("Content-Length"), "2");
    EXPECT_EQ(request.header("Content-Type"), "");
    EXPECT_EQ(request.header("User-Agent"), "Microsoft Internet Explorer");
    EXPECT_EQ(fetcher.response(), "<root/>");
    // The connection serves further gets until it is closed.
    EXPECT_TRUE(fetcher.Get("/cgi-bin/hamweather/hw3.pl"));
    fetcher.Close();
    EXPECT_FALSE(fetcher.Get("/cgi-bin/hamweather/hw3.pl"));
}

TEST_F(PageFetcherTest, OpensNothingOfflineOrForABadHost) {
    NetworkConfig offline = network();
    offline.offline = true;
    PageFetcher unconnected(offline);
    EXPECT_FALSE(unconnected.Open("127.0.0.1"));
    EXPECT_FALSE(unconnected.Get("/"));
    PageFetcher fetcher(network());
    EXPECT_FALSE(fetcher.Get("/")); // never opened
    EXPECT_FALSE(fetcher.Open("bad..host"));
    EXPECT_FALSE(fetcher.Get("/"));
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(PageFetcherTest, StopsAGetFromAnotherThread) {
    server.route("/slow", test::script({{"", "never"}}));
    NetworkConfig n = network();
    n.timeout = std::chrono::seconds(100);
    PageFetcher fetcher(n);
    ASSERT_TRUE(fetcher.Open("127.0.0.1"));
    std::stop_source stop;
    std::jthread canceller([&] {
        for (int i = 0; i < 3000 && server.requests().empty(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        stop.request_stop();
    });
    EXPECT_FALSE(fetcher.Get("/slow", stop.get_token()));
}

} // namespace zonara

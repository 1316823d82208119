#include <gtest/gtest.h>

#include "support/CommandRunner.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"

namespace zonara {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

TEST(CmdFetch, DownloadsThroughTheConfiguredPortOrPrintsTheErrorCode) {
    test::LocalHttpServer server;
    ASSERT_TRUE(server.listening());
    const std::string page(2500, 'z');
    server.route("/page", test::reply(200, page));
    server.route("/empty", test::reply(204, ""));
    server.route("/moved", test::reply(301, "", "Location: /page\r\n"));
    server.route("/broken", test::reply(500, "oops"));
    server.route("/stalls", test::script({{"HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n", ""},
                                          {"", "never"}}));
    test::TempDir dir;
    // Every plain transfer goes to the configured port; a short read limit.
    writeFile(dir.path() / "zonara.ini",
              "[network]\nhttp_port=" + std::to_string(server.port()) + "\ntimeout_s=0.3\n");
    const fs::path out = dir.path() / "got.dat";

    struct Row {
        std::string url;
        int exitCode;
        std::string file; // what got.dat holds after
        std::string out;
        std::string err; // a part of it
    };
    const std::string kept = "kept";
    const Row rows[] = {
        {"http://127.0.0.1:9/page", 0, page, out.string() + ": 2500 of 2500 bytes\n", ""},
        {"http://127.0.0.1/empty", 0, "", out.string() + ": 0 of 0 bytes\n", ""},
        {"http://127.0.0.1/moved", 1, kept, "", "zonara fetch: NON_EXISTENT_URL: "},
        {"http://127.0.0.1/broken", 1, kept, "", "zonara fetch: NON_EXISTENT_URL: "},
        {"http://127.0.0.1/missing", 1, kept, "", "zonara fetch: NON_EXISTENT_URL: "},
        {"http://127.0.0.1/stalls", 1, kept, out.string() + ": 0 of 10 bytes\n",
         "zonara fetch: CONNECTION_PROBLEM: "},
        {"no url at all", 1, kept, "", "zonara fetch: CRACKING_URL: "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.url);
        writeFile(out, kept);
        const auto r = test::runZonara(
            {"--root", dir.path().string(), "fetch", row.url, "--out", out.string()});
        EXPECT_EQ(r.exitCode, row.exitCode) << r.err;
        EXPECT_EQ(readFile(out), row.file);
        EXPECT_EQ(r.out, row.out);
        EXPECT_NE(r.err.find(row.err), std::string::npos) << r.err;
        if (row.exitCode == 0) {
            EXPECT_EQ(r.err, "");
        }
        EXPECT_FALSE(fs::exists(out.string() + ".part"));
    }
    // The port of the URL was not asked; the configured one was.
    EXPECT_EQ(server.requests().front().path(), "/page");

    const auto missingOut = test::runZonara({"--root", dir.path().string(), "fetch", "http://x/"});
    EXPECT_EQ(missingOut.exitCode, 1);
    EXPECT_NE(missingOut.err.find("--out FILE is required"), std::string::npos);
    const auto twoUrls = test::runZonara(
        {"--root", dir.path().string(), "fetch", "http://x/a", "http://x/b", "--out", "f"});
    EXPECT_EQ(twoUrls.exitCode, 1);
    EXPECT_NE(twoUrls.err.find("name one URL"), std::string::npos);
}

} // namespace zonara

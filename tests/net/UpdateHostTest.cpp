#include <gtest/gtest.h>

#include <filesystem>

#include "net/PageFetcher.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

TEST(UpdateHost, RunsTheWeatherGatewayOnceForManyAsksOfOneCity) {
    test::TempDir dir;
    // A stand-in gateway: it answers with its query and counts its calls.
    const fs::path gateway = dir.path() / "gateway";
    const fs::path calls = dir.path() / "calls";
    writeFile(gateway,
              "#!/bin/sh\n"
              "echo \"$QUERY_STRING\" >> '" +
                  calls.string() +
                  "'\n"
                  "printf 'Content-Type: text/xml\\r\\n\\r\\n<root>%s</root>' \"$QUERY_STRING\"\n");
    fs::permissions(gateway, fs::perms::owner_all);
    test::UpdateHost host(test::sourceDir() / "data", {}, gateway);
    ASSERT_TRUE(host.ok()) << host.error();
    NetworkConfig network;
    network.httpPort = host.port();
    PageFetcher fetcher(network);
    ASSERT_TRUE(fetcher.Open("127.0.0.1"));
    const std::pair<const char*, const char*> rows[] = {
        {"/cgi-bin/hamweather/hw3.pl?pands=London%2C+GB", "<root>pands=London%2C+GB</root>"},
        {"/cgi-bin/hamweather/hw3.pl?pands=London%2C+GB", "<root>pands=London%2C+GB</root>"},
        {"/cgi-bin/hamweather/hw3.cgi?pands=Oslo%2C+NO", "<root>pands=Oslo%2C+NO</root>"},
        {"/cgi-bin/hamweather/hw3.pl?pands=London%2C+GB", "<root>pands=London%2C+GB</root>"},
    };
    for (const auto& [path, report] : rows) {
        ASSERT_TRUE(fetcher.Get(path)) << path << "\n" << host.errorLog();
        EXPECT_EQ(fetcher.response(), report) << path;
    }
    EXPECT_EQ(readFile(calls), "pands=London%2C+GB\npands=Oslo%2C+NO\n");
    EXPECT_FALSE(fetcher.Get("/cgi-bin/hamweather/other.pl"));
}

TEST(UpdateHost, PublishingKeepsTheStampOfTheSameDataAndChangesItForNewData) {
    test::TempDir dir;
    const fs::path script = test::sourceDir() / "scripts" / "publish-update-tree.sh";
    const fs::path shipped = test::sourceDir() / "data";
    const fs::path tree = dir.path() / "tree";
    const Paths small =
        test::writeWorld(dir.path() / "small", {{"Norway", {test::sampleCity("Oslo")}}});
    test::writeRules(small);
    const auto publish = [&](const fs::path& data) {
        const test::ProgramRun run =
            test::runProgram({"bash", script.string(), "--data", data.string(), tree.string()});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(readFile(tree / "zonara" / "version40.dat"), run.out.substr(0, 4) + "\r\n");
        return run.out.substr(0, 4);
    };
    const std::string shippedStamp = publish(shipped);
    EXPECT_EQ(shippedStamp, readFile(shipped / "version40.dat").substr(0, 4));
    EXPECT_EQ(publish(shipped), shippedStamp);
    const std::string smallStamp = publish(small.dataDir());
    EXPECT_NE(smallStamp, shippedStamp);
    EXPECT_EQ(readFile(tree / "zonara" / "city40.dat"), readFile(small.dataFile("city40.dat")));
    EXPECT_NE(publish(shipped), smallStamp);

    fs::remove(small.dataFile("daylight40.dat"));
    const test::ProgramRun refused = test::runProgram(
        {"bash", script.string(), "--data", small.dataDir().string(), tree.string()});
    EXPECT_NE(refused.exitCode, 0);
    EXPECT_EQ(readFile(tree / "zonara" / "version40.dat"), shippedStamp + "\r\n");
}

} // namespace zonara

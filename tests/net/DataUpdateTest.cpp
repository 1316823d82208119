#include <gtest/gtest.h>

#include <condition_variable>
#include <filesystem>
#include <map>
#include <mutex>
#include <optional>

#include "net/DataUpdate.h"
#include "net/DataUpdateWorker.h"
#include "net/FileDownloader.h"
#include "support/LocalHttpServer.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"
#include "support/UpdateInstall.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace fs = std::filesystem;
using test::installedFiles;
using test::installSmallWorld;
using test::leftovers;
using test::readFile;
using test::reply;
using test::writeFile;

namespace {

class RecordingSink : public UpdateSink {
  public:
    void runStarted() override { ++started; }
    void status(UpdateStatus status) override {
        {
            const std::lock_guard lock(mutex);
            log.emplace_back(statusText(status));
        }
        changed.notify_all();
    }
    void progressRange(std::uint16_t range, std::int32_t length) override {
        const std::lock_guard lock(mutex);
        ranges.emplace_back(range, length);
    }
    void progressPosition(std::int32_t bytes) override {
        {
            const std::lock_guard lock(mutex);
            positions.push_back(bytes);
        }
        changed.notify_all();
    }
    void runEnded(UpdateOutcome outcome) override {
        {
            const std::lock_guard lock(mutex);
            ended.push_back(outcome);
        }
        changed.notify_all();
    }

    std::vector<std::string> texts() const {
        const std::lock_guard lock(mutex);
        return log;
    }
    // Waits at most 30 s for the condition on the texts and positions.
    bool waitUntil(const std::function<bool(const std::vector<std::string>&,
                                            const std::vector<std::int32_t>&)>& condition) {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, std::chrono::seconds(30),
                                [&] { return condition(log, positions); });
    }

    int started = 0;
    std::vector<std::pair<std::uint16_t, std::int32_t>> ranges;
    std::vector<std::int32_t> positions;
    std::vector<UpdateOutcome> ended;

  private:
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::string> log;
};

const std::string dial = "Dial Connection";
const std::string checking = "Checking for new data";
const std::string cityText = "Download City Data";
const std::string countryText = "Download Country Data";
const std::string dstText = "Download DST Data";
const std::vector<std::string> installs = {dial,    checking,       cityText,  countryText,
                                           dstText, "Install Data", "Finished"};

// The same small world as the fault server hands it out.
struct ServedWorld {
    std::string version = "new!\r\n";
    std::string country = "0\t0\tNorway\r\n";
    std::string city = test::cityLine(0, test::sampleCity("Oslo"));
    std::string daylight = "LastSunMar 01:00\tLastSunOct 00:59\r\n";

    void serve(test::LocalHttpServer& server) const {
        server.route("/zonara/version40.dat", reply(200, version));
        server.route("/zonara/country40.dat", reply(200, country));
        server.route("/zonara/city40.dat", reply(200, city));
        server.route("/zonara/daylight40.dat", reply(200, daylight));
    }
};

Config configFor(std::uint16_t port, std::string primary = "127.0.0.1", std::string fallback = "") {
    Config config;
    config.network.httpPort = port;
    config.network.timeout = std::chrono::seconds(5);
    config.update.primary = std::move(primary);
    config.update.fallback = std::move(fallback);
    return config;
}

} // namespace

TEST(DataUpdate, InstallsNewDataFromTheHostThenFindsNoNewData) {
    const fs::path shipped = test::sourceDir() / "data";
    test::TempDir extra;
    writeFile(extra.path() / "eurofxref-daily.xml", "<rates/>");
    test::UpdateHost host(shipped, {extra.path() / "eurofxref-daily.xml"});
    ASSERT_TRUE(host.ok()) << host.error();
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    const Config config = configFor(host.port());
    // A second name for the old city file: a rename leaves its bytes alone,
    // writing over the installed file would change them.
    const std::string oldCity = readFile(paths.dataFile("city40.dat"));
    fs::create_hard_link(paths.dataFile("city40.dat"), root.path() / "old-city");

    RecordingSink first;
    EXPECT_EQ(runDataUpdate(paths, config, first), UpdateOutcome::Finished);
    EXPECT_EQ(first.texts(), installs);
    EXPECT_EQ(first.ended, std::vector<UpdateOutcome>{UpdateOutcome::Finished});
    for (const UpdateFile& file : updateFiles) {
        EXPECT_EQ(readFile(paths.dataFile(file.installed)),
                  readFile(host.tree() / file.serverPath.substr(1)))
            << file.installed;
    }
    EXPECT_EQ(readFile(root.path() / "old-city"), oldCity);
    EXPECT_TRUE(leftovers(paths).empty());

    // One range per file, in the order fetched; the city file is larger than
    // a 16-bit range and wraps; each file ends with its whole length.
    const std::vector<std::string> order = {"version40.dat", "city40.dat", "country40.dat",
                                            "daylight40.dat"};
    ASSERT_EQ(first.ranges.size(), order.size());
    ASSERT_GT(fs::file_size(host.tree() / "zonara" / "city40.dat"), 65535u);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto size = std::int32_t(fs::file_size(host.tree() / "zonara" / order[i]));
        EXPECT_EQ(first.ranges[i].first, std::uint16_t(size & 0xFFFF)) << order[i];
        EXPECT_EQ(first.ranges[i].second, size) << order[i];
    }
    EXPECT_EQ(first.positions.back(),
              std::int32_t(fs::file_size(host.tree() / "zonara" / "daylight40.dat")));

    const auto installed = installedFiles(paths);
    RecordingSink second;
    EXPECT_EQ(runDataUpdate(paths, config, second), UpdateOutcome::NoNewData);
    EXPECT_EQ(second.texts(), (std::vector<std::string>{dial, checking, "No new data"}));
    EXPECT_EQ(installedFiles(paths), installed);
    EXPECT_TRUE(leftovers(paths).empty());

    // A fresh installation of the shipped data is as new as the host's.
    test::TempDir freshRoot;
    const Paths fresh = test::copyShippedWorld(freshRoot.path());
    fs::copy_file(shipped / "version40.dat", fresh.dataFile("version40.dat"));
    RecordingSink third;
    EXPECT_EQ(runDataUpdate(fresh, config, third), UpdateOutcome::NoNewData);

    // The extra file is served from the top of the tree.
    FileDownloader downloader(config.network);
    const fs::path rates = root.path() / "rates.xml";
    ASSERT_EQ(downloader.Download("http://127.0.0.1/eurofxref-daily.xml", rates.c_str(), nullptr,
                                  nullptr, nullptr),
              1);
    EXPECT_EQ(readFile(rates), "<rates/>");
}

TEST(DataUpdate, FallsBackWhenThePrimaryHostIsDown) {
    test::UpdateHost host(test::sourceDir() / "data");
    ASSERT_TRUE(host.ok()) << host.error();
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    // Nothing listens on 127.0.0.2: the connection is refused at once.
    RecordingSink sink;
    EXPECT_EQ(runDataUpdate(paths, configFor(host.port(), "127.0.0.2", "127.0.0.1"), sink),
              UpdateOutcome::Finished);
    std::vector<std::string> expected = {dial, checking};
    expected.insert(expected.end(), installs.begin(), installs.end());
    EXPECT_EQ(sink.texts(), expected);
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")),
              readFile(host.tree() / "zonara" / "city40.dat"));
}

TEST(DataUpdate, LeavesTheInstalledFilesWholeWhenAnythingFails) {
    const fs::path shipped = test::sourceDir() / "data";
    test::UpdateHost host(shipped);
    ASSERT_TRUE(host.ok()) << host.error();
    const fs::path served = host.tree() / "zonara";
    const std::string failed = "Failed to get all the files";
    struct Row {
        const char* name;
        std::function<void()> breakHost;
        std::string primary;
        std::string fallback;
        bool offline;
        std::vector<std::string> texts;
        UpdateOutcome outcome;
    };
    const Row rows[] = {
        {"daylight file missing",
         [&] { fs::remove(served / "daylight40.dat"); },
         "127.0.0.1",
         "",
         false,
         {dial, checking, cityText, countryText, dstText, failed},
         UpdateOutcome::FailedToGetAllFiles},
        {"city file missing",
         [&] { fs::remove(served / "city40.dat"); },
         "127.0.0.1",
         "",
         false,
         {dial, checking, cityText, failed},
         UpdateOutcome::FailedToGetAllFiles},
        {"city file corrupt",
         [&] { writeFile(served / "city40.dat", "<html>502</html>\r\n"); },
         "127.0.0.1",
         "",
         false,
         {dial, checking, cityText, countryText, dstText, failed},
         UpdateOutcome::FailedToGetAllFiles},
        {"country file cut short",
         [&] {
             const std::string text = readFile(served / "country40.dat");
             writeFile(served / "country40.dat", text.substr(0, text.size() / 2));
         },
         "127.0.0.1",
         "",
         false,
         {dial, checking, cityText, countryText, dstText, failed},
         UpdateOutcome::FailedToGetAllFiles},
        {"rule that does not resolve",
         [&] { writeFile(served / "daylight40.dat", "LastSunMrz 01:00\tLastSunOct 00:59\r\n"); },
         "127.0.0.1",
         "",
         false,
         {dial, checking, cityText, countryText, dstText, failed},
         UpdateOutcome::FailedToGetAllFiles},
        {"both hosts down",
         [] {},
         "127.0.0.2",
         "127.0.0.3",
         false,
         {dial, checking, dial, checking, "Server error, try later"},
         UpdateOutcome::ServerError},
        {"primary down, no fallback",
         [] {},
         "127.0.0.2",
         "",
         false,
         {dial, checking, dial, "Unable to Connect"},
         UpdateOutcome::UnableToConnect},
        {"no host configured",
         [] {},
         "",
         "",
         false,
         {dial, "Unable to Connect"},
         UpdateOutcome::UnableToConnect},
        {"offline",
         [] {},
         "127.0.0.1",
         "",
         true,
         {dial, "Unable to Connect"},
         UpdateOutcome::UnableToConnect},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(host.publish(shipped)) << host.error(); // whole again
        row.breakHost();
        test::TempDir root;
        const Paths paths = installSmallWorld(root.path());
        const auto before = installedFiles(paths);
        Config config = configFor(host.port(), row.primary, row.fallback);
        config.network.offline = row.offline;
        RecordingSink sink;
        EXPECT_EQ(runDataUpdate(paths, config, sink), row.outcome);
        EXPECT_EQ(sink.texts(), row.texts);
        EXPECT_EQ(installedFiles(paths), before);
        EXPECT_TRUE(leftovers(paths).empty());
    }
}

TEST(DataUpdate, ComparesOnlyTheFirstFourBytesOfTheVersionFiles) {
    struct Row {
        const char* name;
        std::optional<std::string> installed; // nullopt: no installed version file
        std::string served;
        UpdateOutcome outcome;
    };
    const Row rows[] = {
        {"different stamps", "old!\r\n", "new!\r\n", UpdateOutcome::Finished},
        {"same stamp, different rest", "0364\r\n", "0364 and more", UpdateOutcome::NoNewData},
        {"none installed", std::nullopt, "0364\r\n", UpdateOutcome::Finished},
        // What cannot be read keeps the starting values: 1 installed, 0 new.
        {"none installed, new stamp reads as 1", std::nullopt, std::string("\1\0\0\0", 4),
         UpdateOutcome::NoNewData},
        {"empty installed, one byte served", "", "\1", UpdateOutcome::NoNewData},
        {"none installed, empty served", std::nullopt, "", UpdateOutcome::Finished},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        test::LocalHttpServer server;
        ServedWorld world;
        world.version = row.served;
        world.serve(server);
        test::TempDir root;
        const Paths paths = installSmallWorld(root.path());
        fs::remove(paths.dataFile("version40.dat"));
        if (row.installed) {
            writeFile(paths.dataFile("version40.dat"), *row.installed);
        }
        RecordingSink sink;
        EXPECT_EQ(runDataUpdate(paths, configFor(server.port()), sink), row.outcome);
        if (row.outcome == UpdateOutcome::Finished) {
            EXPECT_EQ(readFile(paths.dataFile("version40.dat")), row.served);
            EXPECT_EQ(readFile(paths.dataFile("city40.dat")), world.city);
        }
        EXPECT_TRUE(leftovers(paths).empty());
    }
}

TEST(DataUpdate, TakesTheDataFilesFromTheHostThatGaveTheVersion) {
    test::LocalHttpServer server;
    ServedWorld().serve(server);
    // "localhost" and "127.0.0.1" reach the same server; it answers by Host.
    server.route("localhost", "/zonara/version40.dat", reply(404, ""));
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    RecordingSink sink;
    EXPECT_EQ(runDataUpdate(paths, configFor(server.port(), "localhost", "127.0.0.1"), sink),
              UpdateOutcome::Finished);
    std::vector<std::string> hostsOfDataFiles;
    for (const test::HttpRequest& request : server.requests()) {
        if (request.path() != "/zonara/version40.dat") {
            hostsOfDataFiles.push_back(request.host());
        }
    }
    EXPECT_EQ(hostsOfDataFiles, std::vector<std::string>(3, "127.0.0.1"));
}

TEST(DataUpdate, KeepsAPartialVersionFileWhenNeitherHostGivesIt) {
    test::LocalHttpServer server;
    ServedWorld().serve(server);
    server.route("/zonara/version40.dat",
                 test::script({{"HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\nne", ""}}));
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    RecordingSink sink;
    EXPECT_EQ(runDataUpdate(paths, configFor(server.port(), "127.0.0.1", "localhost"), sink),
              UpdateOutcome::ServerError);
    EXPECT_EQ(leftovers(paths), std::vector<std::string>{"version40.tmp"});
    EXPECT_EQ(readFile(paths.dataFile("version40.tmp")), "ne");
}

TEST(DataUpdate, CancelStopsTheRunAndRemovesTheTemporaryFiles) {
    test::LocalHttpServer server;
    const ServedWorld world;
    world.serve(server);
    const std::string big(50000, 'x');
    server.route(
        "/zonara/city40.dat",
        test::script(
            {{"HTTP/1.1 200 OK\r\nContent-Length: 50000\r\n\r\n" + big.substr(0, 3000), ""},
             {big.substr(3000), "never"}}));
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    const auto before = installedFiles(paths);
    Config config = configFor(server.port());
    config.network.timeout = std::chrono::seconds(100);
    DataUpdateWorker worker(paths, config);
    worker.cancel(); // nothing to cancel: nothing happens
    EXPECT_FALSE(worker.outcome().has_value());

    RecordingSink sink;
    ASSERT_TRUE(worker.start(sink));
    // The city file stalls after its first 3000 bytes.
    ASSERT_TRUE(sink.waitUntil([](const auto& texts, const auto& positions) {
        return !texts.empty() && texts.back() == cityText && !positions.empty() &&
               positions.back() == 3000;
    }));
    EXPECT_TRUE(fs::exists(paths.dataFile("city40.tmp")));
    RecordingSink ignored;
    EXPECT_FALSE(worker.start(ignored)); // "Update" while a run is going on
    EXPECT_TRUE(worker.running());
    worker.cancel();
    EXPECT_FALSE(worker.running());
    EXPECT_EQ(worker.outcome(), UpdateOutcome::Cancelled);
    EXPECT_EQ(sink.texts(), (std::vector<std::string>{dial, checking, cityText}));
    EXPECT_EQ(ignored.started, 0);
    EXPECT_EQ(installedFiles(paths), before);
    EXPECT_TRUE(leftovers(paths).empty());

    // A new run after the cancelled one.
    server.route("/zonara/city40.dat", reply(200, world.city));
    RecordingSink again;
    ASSERT_TRUE(worker.start(again));
    ASSERT_TRUE(again.waitUntil([&](const auto&, const auto&) { return !again.ended.empty(); }));
    worker.cancel(); // joins the ended worker; removes nothing
    EXPECT_EQ(worker.outcome(), UpdateOutcome::Finished);
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")), world.city);
}

} // namespace zonara

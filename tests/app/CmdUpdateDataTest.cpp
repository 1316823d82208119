#include <gtest/gtest.h>

#include <sstream>

#include "app/CommandLine.h"
#include "core/Settings.h"
#include "core/WorldFiles.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

namespace {

const std::string installs = "Dial Connection\nChecking for new data\nDownload City Data\n"
                             "Download Country Data\nDownload DST Data\nInstall Data\nFinished\n"
                             "Data Changed\nPreparing data\n";

// Installed: France and the United Kingdom, London as in every sample.
Paths installSmallWorld(const fs::path& root) {
    const Paths paths = test::writeWorld(root, {{"France", {test::sampleCity("Paris")}},
                                                {"United Kingdom", {test::sampleCity("London")}}});
    test::writeRules(paths);
    writeFile(paths.dataFile("version40.dat"), "old!\r\n");
    return paths;
}

// Served: London with another airport code, and Japan.
Paths publishedWorld(const fs::path& root) {
    City london = test::sampleCity("London");
    london.airportCode = "LCY";
    const Paths paths = test::writeWorld(
        root, {{"United Kingdom", {london}}, {"Japan", {test::sampleCity("Tokyo")}}});
    test::writeRules(paths);
    return paths;
}

void writeIni(const Paths& paths, const std::string& text) {
    writeFile(paths.root() / "zonara.ini", text);
}

std::string hostIni(std::uint16_t port, const std::string& primary = "127.0.0.1",
                    const std::string& fallback = "") {
    return "[network]\nhttp_port=" + std::to_string(port) +
           "\ntimeout_s=10\n[update]\nprimary=" + primary + "\nfallback=" + fallback + "\n";
}

std::string sizeLine(const fs::path& file) {
    const std::string size = std::to_string(fs::file_size(file));
    return file.filename().string() + ": " + size + " of " + size + " bytes\n";
}

} // namespace

TEST(CmdUpdateData, InstallsRebuildsAndUpdatesTheSlotsThenFindsNoNewData) {
    test::TempDir published;
    test::UpdateHost host(publishedWorld(published.path()).dataDir());
    ASSERT_TRUE(host.ok()) << host.error();
    const fs::path served = host.tree() / "zonara";
    test::TempDir dir;
    const Paths paths = installSmallWorld(dir.path());
    writeIni(paths, hostIni(host.port()));
    const std::string root = dir.path().string();

    auto r = test::runZonara({"--root", root, "update-data"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.err, installs);
    EXPECT_EQ(r.out, sizeLine(served / "version40.dat") + sizeLine(served / "city40.dat") +
                         sizeLine(served / "country40.dat") + sizeLine(served / "daylight40.dat") +
                         "installed world data version " + host.stamp() + "\n");
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")).find("Paris"), std::string::npos);
    EXPECT_FALSE(dataFilesChanged(paths));
    Settings settings;
    ASSERT_TRUE(settings.Load(paths.dataFile("settings.dat")));
    EXPECT_EQ(settings.slots[0].airportCode, u"LCY");

    r = test::runZonara({"--root", root, "update-data"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.err, "Dial Connection\nChecking for new data\nNo new data\n");
    EXPECT_EQ(r.out, sizeLine(served / "version40.dat") + "world data version " + host.stamp() +
                         " is the newest\n");

    // On a terminal each file gets a bar redrawn in place.
    fs::remove(paths.dataFile("version40.dat"));
    std::ostringstream out, err;
    EXPECT_EQ(runCommandLine({"--root", root, "update-data"}, CommandIo{out, err, true}), 0);
    const std::string size = std::to_string(fs::file_size(served / "city40.dat"));
    EXPECT_NE(out.str().find("\rcity40.dat [####################] 100%  " + size + " of " + size +
                             " bytes\n"),
              std::string::npos)
        << out.str();
}

TEST(CmdUpdateData, FailuresExitWithOneAndSayWhy) {
    test::TempDir published;
    const Paths served = publishedWorld(published.path());
    test::UpdateHost host(served.dataDir());
    ASSERT_TRUE(host.ok()) << host.error();
    const std::string port = std::to_string(host.port());
    struct Row {
        const char* name;
        std::string ini; // empty: no zonara.ini
        std::function<void()> breakHost;
        std::string err;
    };
    const Row rows[] = {
        {"no zonara.ini", "", [] {},
         "Dial Connection\nUnable to Connect\n"
         "zonara update-data: no update host: set [update] primary in zonara.ini\n"},
        {"offline", hostIni(host.port()) + "[network]\noffline=true\n", [] {},
         "Dial Connection\nUnable to Connect\n"
         "zonara update-data: [network] offline is set in zonara.ini\n"},
        {"both hosts down", hostIni(host.port(), "127.0.0.2", "127.0.0.3"), [] {},
         "Dial Connection\nChecking for new data\nDial Connection\nChecking for new data\n"
         "Server error, try later\nzonara update-data: the version file came from neither "
         "127.0.0.2 nor 127.0.0.3 (port " +
             port + ")\n"},
        {"primary down, no fallback", hostIni(host.port(), "127.0.0.2"), [] {},
         "Dial Connection\nChecking for new data\nDial Connection\nUnable to Connect\n"
         "zonara update-data: the version file did not come from 127.0.0.2 (port " +
             port + ") and no [update] fallback is set\n"},
        {"country file missing", hostIni(host.port()),
         [&] { fs::remove(host.tree() / "zonara" / "country40.dat"); },
         "Dial Connection\nChecking for new data\nDownload City Data\nDownload Country Data\n"
         "Failed to get all the files\nzonara update-data: a world file did not arrive whole or "
         "is not world data; the installed files are unchanged\n"},
        {"malformed value, told once", "[network]\nhttp_port=eighty\n", [] {}, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(host.publish(served.dataDir())) << host.error();
        row.breakHost();
        test::TempDir dir;
        const Paths paths = installSmallWorld(dir.path());
        const std::string before = readFile(paths.dataFile("city40.dat"));
        if (!row.ini.empty())
            writeIni(paths, row.ini);
        const auto r = test::runZonara({"--root", dir.path().string(), "update-data"});
        EXPECT_EQ(r.exitCode, 1);
        if (!row.err.empty()) {
            EXPECT_EQ(r.err, row.err);
        } else {
            const std::string warning =
                "zonara update-data: " + (paths.root() / "zonara.ini").string() +
                ":2: [network] http_port=eighty is not valid; using 80\n";
            EXPECT_EQ(r.err.find(warning), 0u) << r.err;
            EXPECT_EQ(r.err.find(warning, 1), std::string::npos) << r.err;
        }
        EXPECT_EQ(readFile(paths.dataFile("city40.dat")), before);
    }
}

} // namespace zonara

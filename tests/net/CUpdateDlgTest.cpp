#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "controls/CommandIds.h"
#include "controls/SoftKeyBar.h"
#include "net/CUpdateDlg.h"
#include "net/DataUpdate.h"
#include "support/EventWait.h"
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
using test::writeFile;

namespace {

const DeviceProfile profile = *deviceProfile(240, 320);

Config configFor(std::uint16_t port) {
    Config config;
    config.network.httpPort = port;
    config.network.timeout = std::chrono::seconds(10);
    config.update.primary = "127.0.0.1";
    return config;
}

std::size_t requestsFor(const test::LocalHttpServer& server, const std::string& path) {
    std::size_t count = 0;
    for (const test::HttpRequest& request : server.requests())
        count += request.path() == path ? 1 : 0;
    return count;
}

bool runEnds(const CUpdateDlg& dialog) {
    return test::processEventsUntil([&] { return !dialog.runShown(); });
}

} // namespace

TEST(CUpdateDlg, OpensIdleWithItsTextsAndKeys) {
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    CUpdateDlg dialog(paths, Config{}, profile);
    EXPECT_EQ(dialog.windowTitle(), "Update Data");
    EXPECT_EQ(dialog.statusText().toStdString(), "Press'Update' to start");
    EXPECT_EQ(dialog.descriptionText(),
              "Updates the internal data files with the latest data from the server.");
    EXPECT_EQ(dialog.softKeys()->leftButton()->text(), "Done");
    EXPECT_EQ(dialog.leftKeyCommand(), cmd::Done);
    ASSERT_NE(dialog.menuCommand(cmd::Update), nullptr);
    EXPECT_EQ(dialog.menuCommand(cmd::Update)->text(), "Update");
    EXPECT_EQ(dialog.progressBar()->value(), 0);
    EXPECT_FALSE(dialog.iconLit());
    EXPECT_FALSE(dialog.iconTimer().isActive());
    EXPECT_EQ(dialog.statusIcon()->size(), QSize(14, 14));
    // The two pictures differ, so the blink shows.
    EXPECT_NE(CUpdateDlg::iconPicture(true).toImage(), CUpdateDlg::iconPicture(false).toImage());

    // Without an update host the run ends at once, and nothing is installed.
    dialog.runCommand(cmd::Update);
    ASSERT_TRUE(runEnds(dialog));
    EXPECT_EQ(dialog.statusText().toStdString(), "Unable to Connect");
    EXPECT_FALSE(dialog.dataInstalled());
    EXPECT_FALSE(dialog.iconTimer().isActive());
}

TEST(CUpdateDlg, InstallsFromTheUpdateHostThenFindsNoNewData) {
    test::UpdateHost host(test::sourceDir() / "data");
    ASSERT_TRUE(host.ok()) << host.error();
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    CUpdateDlg dialog(paths, configFor(host.port()), profile);

    dialog.runCommand(cmd::Update);
    EXPECT_TRUE(dialog.runShown());
    EXPECT_TRUE(dialog.iconTimer().isActive());
    EXPECT_EQ(dialog.iconTimer().interval(), 500);
    ASSERT_TRUE(runEnds(dialog));
    EXPECT_EQ(dialog.statusText().toStdString(), "Finished");
    EXPECT_TRUE(dialog.dataInstalled());
    for (const UpdateFile& file : updateFiles)
        EXPECT_EQ(readFile(paths.dataFile(file.installed)),
                  readFile(host.tree() / file.serverPath.substr(1)))
            << file.installed;
    EXPECT_TRUE(leftovers(paths).empty());
    // The bar ends on the last file, the daylight-saving one, whole.
    const auto last = int(fs::file_size(host.tree() / "zonara" / "daylight40.dat"));
    EXPECT_EQ(dialog.progressBar()->maximum(), last & 0xFFFF);
    EXPECT_EQ(dialog.progressBar()->value(), last & 0xFFFF);
    EXPECT_FALSE(dialog.iconLit());
    EXPECT_FALSE(dialog.iconTimer().isActive());

    // A second run finds nothing new; the dialog still tells its caller that
    // files were installed.
    dialog.runCommand(cmd::Update);
    ASSERT_TRUE(runEnds(dialog));
    EXPECT_EQ(dialog.statusText().toStdString(), "No new data");
    EXPECT_TRUE(dialog.dataInstalled());
}

TEST(CUpdateDlg, UpdateIsIgnoredWhileARunGoesOnAndTheIconBlinks) {
    test::TempDir root;
    const Paths paths = installSmallWorld(root.path());
    test::LocalHttpServer server;
    ASSERT_TRUE(server.listening());
    // The installed version comes back: nothing new, once the gate opens.
    server.route("/zonara/version40.dat",
                 test::script({{"", "version"}, {test::httpResponse(200, "old!\r\n"), ""}}));
    CUpdateDlg dialog(paths, configFor(server.port()), profile);

    dialog.runCommand(cmd::Update);
    // The request has arrived and the dialog has heard of it.
    ASSERT_TRUE(test::processEventsUntil([&] {
        return requestsFor(server, "/zonara/version40.dat") == 1 &&
               dialog.statusText() == "Checking for new data";
    })) << dialog.statusText().toStdString();
    int flips = 0;
    bool seen = dialog.iconLit();
    ASSERT_TRUE(test::processEventsUntil([&] {
        if (dialog.iconLit() != seen) {
            seen = dialog.iconLit();
            ++flips;
        }
        return flips >= 2;
    }));
    for (int i = 0; i < 3; ++i)
        dialog.runCommand(cmd::Update);

    server.openGate("version");
    ASSERT_TRUE(runEnds(dialog));
    EXPECT_EQ(dialog.statusText().toStdString(), "No new data");
    EXPECT_EQ(requestsFor(server, "/zonara/version40.dat"), 1u);
    EXPECT_FALSE(dialog.iconLit());

    // Once the run has ended, Update starts a new one.
    dialog.runCommand(cmd::Update);
    ASSERT_TRUE(runEnds(dialog));
    EXPECT_EQ(requestsFor(server, "/zonara/version40.dat"), 2u);
}

TEST(CUpdateDlg, EndingDuringARunStopsItAndLeavesTheInstalledFilesWhole) {
    struct Row {
        int command;
        int result;
    };
    const Row rows[] = {
        {cmd::Done, QDialog::Accepted},
        {cmd::Cancel, QDialog::Rejected},
        {cmd::PlatformCancel, QDialog::Rejected}, // Escape
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.command);
        test::TempDir root;
        const Paths paths = installSmallWorld(root.path());
        const auto before = installedFiles(paths);
        test::LocalHttpServer server;
        ASSERT_TRUE(server.listening());
        server.route("/zonara/version40.dat", test::reply(200, "new!\r\n"));
        // 70000 bytes announced, 3000 sent, the rest held back for good.
        server.route("/zonara/city40.dat",
                     test::script({{"HTTP/1.1 200 OK\r\nContent-Length: 70000\r\n"
                                    "Connection: close\r\n\r\n" +
                                        std::string(3000, 'x'),
                                    ""},
                                   {"", "never"}}));
        CUpdateDlg dialog(paths, configFor(server.port()), profile);
        dialog.runCommand(cmd::Update);
        // The range is the length's low 16 bits: 70000 - 65536.
        ASSERT_TRUE(test::processEventsUntil([&] {
            return dialog.progressBar()->maximum() == 4464 && dialog.progressBar()->value() == 3000;
        }));
        EXPECT_EQ(dialog.statusText().toStdString(), "Download City Data");
        ASSERT_FALSE(leftovers(paths).empty());

        dialog.runCommand(row.command);
        EXPECT_EQ(dialog.result(), row.result);
        EXPECT_FALSE(dialog.runShown());
        EXPECT_FALSE(dialog.iconTimer().isActive());
        EXPECT_FALSE(dialog.dataInstalled());
        EXPECT_EQ(installedFiles(paths), before);
        EXPECT_TRUE(leftovers(paths).empty());
    }
}

} // namespace zonara

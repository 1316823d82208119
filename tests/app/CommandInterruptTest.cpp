#include <gtest/gtest.h>

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "app/CommandLine.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"
#include "support/UpdateInstall.h"
#include "support/WorldFixture.h"

namespace zonara {

namespace fs = std::filesystem;
using test::readFile;
using test::writeFile;

namespace {

struct ChildRun {
    int exitCode = -1;
    std::string err;
};

// Runs the command line in a child process (its only thread, so Ctrl-C
// reaches the command's own watcher), sends it SIGINT once the server has
// the request, and collects its exit code and stderr; bounded in time.
ChildRun interruptedRun(const std::vector<std::string>& words, test::LocalHttpServer& server,
                        const std::string& path) {
    int pipeEnds[2];
    if (::pipe(pipeEnds) != 0)
        return {};
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(pipeEnds[0]);
        std::ostringstream out, err;
        const int code = runCommandLine(words, out, err);
        const std::string text = err.str();
        [[maybe_unused]] const auto written = ::write(pipeEnds[1], text.data(), text.size());
        ::_exit(code);
    }
    ::close(pipeEnds[1]);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    const auto asked = [&] {
        for (const test::HttpRequest& request : server.requests())
            if (request.path() == path)
                return true;
        return false;
    };
    while (!asked() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    ::kill(pid, SIGINT);
    ChildRun run;
    char buffer[512];
    while (std::chrono::steady_clock::now() < deadline) {
        pollfd p{pipeEnds[0], POLLIN, 0};
        if (::poll(&p, 1, 100) <= 0)
            continue;
        const ssize_t n = ::read(pipeEnds[0], buffer, sizeof buffer);
        if (n <= 0)
            break;
        run.err.append(buffer, std::size_t(n));
    }
    ::close(pipeEnds[0]);
    int status = 0;
    if (::waitpid(pid, &status, WNOHANG) != pid) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        if (::waitpid(pid, &status, WNOHANG) != pid) {
            ::kill(pid, SIGKILL);
            ::waitpid(pid, &status, 0);
        }
    }
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace

TEST(CommandInterrupt, CtrlCEndsATransferCleanlyAndLeavesTheFilesAsTheyWere) {
    test::LocalHttpServer server;
    ASSERT_TRUE(server.listening());
    const auto stalls = [](const std::string& gate) {
        return test::script(
            {{"HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n" + std::string(2000, 'x'), ""},
             {"", gate}});
    };
    server.route("/file", stalls("file"));
    server.route("/zonara/version40.dat", test::reply(200, "new!\r\n"));
    server.route("/zonara/city40.dat", stalls("city"));
    test::TempDir dir;
    const Paths paths = test::writeWorld(dir.path(), {{"France", {test::sampleCity("Paris")}}});
    test::writeRules(paths);
    writeFile(dir.path() / "zonara.ini", "[network]\nhttp_port=" + std::to_string(server.port()) +
                                             "\n[update]\nprimary=127.0.0.1\n");
    const std::string root = dir.path().string();
    const std::string city = readFile(paths.dataFile("city40.dat"));
    const fs::path out = dir.path() / "out.dat";
    writeFile(out, "kept");

    ChildRun run = interruptedRun(
        {"--root", root, "fetch", "http://127.0.0.1/file", "--out", out.string()}, server, "/file");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.err.find("zonara fetch: interrupted"), std::string::npos) << run.err;
    EXPECT_EQ(readFile(out), "kept");
    EXPECT_FALSE(fs::exists(out.string() + ".part"));

    run = interruptedRun({"--root", root, "update-data"}, server, "/zonara/city40.dat");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.err.find("Download City Data\nzonara update-data: interrupted"),
              std::string::npos)
        << run.err;
    EXPECT_EQ(readFile(paths.dataFile("city40.dat")), city);
    EXPECT_TRUE(test::leftovers(paths).empty());
}

} // namespace zonara

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <thread>

#include "TestRecorders.h"
#include "net/FetchFile.h"
#include "net/FileDownloader.h"
#include "support/LocalHttpServer.h"
#include "support/TempDir.h"

namespace zonara {

namespace fs = std::filesystem;
using test::HttpHandler;
using test::httpResponse;
using test::readFile;
using test::reply;
using test::script;
using test::Step;

namespace {

std::string bodyOf(std::size_t size) {
    std::string body(size, ' ');
    for (std::size_t i = 0; i < size; ++i) {
        body[i] = char('a' + (i * 7 + i / 26) % 26);
    }
    return body;
}

std::string headers(int status, std::optional<std::size_t> length) {
    std::string head = "HTTP/1.1 " + std::to_string(status) + " X\r\nConnection: close\r\n";
    if (length) {
        head += "Content-Length: " + std::to_string(*length) + "\r\n";
    }
    return head + "\r\n";
}

// How many descriptors of this process are open on the file.
int openCount(const fs::path& file) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code error;
        if (fs::read_symlink(entry.path(), error) == file) {
            ++count;
        }
    }
    return count;
}

// A port with a socket bound to it and no listener: connections are refused.
class RefusingPort {
  public:
    RefusingPort() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        bind(s, reinterpret_cast<sockaddr*>(&address), sizeof address);
        getsockname(s, reinterpret_cast<sockaddr*>(&address), &length);
        number = ntohs(address.sin_port);
    }
    ~RefusingPort() { close(s); }
    std::uint16_t number = 0;

  private:
    int s = socket(AF_INET, SOCK_STREAM, 0);
};

class FileDownloaderTest : public ::testing::Test {
  protected:
    NetworkConfig network() const {
        NetworkConfig n;
        n.httpPort = server.port();
        n.httpsPort = server.port();
        n.timeout = std::chrono::seconds(5);
        return n;
    }
    // The URL names port 80: the configured port is the one used.
    std::string url(const std::string& path) const { return "http://127.0.0.1" + path; }

    test::LocalHttpServer server;
    test::TempDir dir;
};

} // namespace

TEST_F(FileDownloaderTest, AcceptsAnyStatusFrom200To299) {
    struct Row {
        int status;
        std::string body;
        bool withLength;
        int result;
        std::vector<std::string> messages;
    };
    const Row rows[] = {
        {200, "hello", true, 1, {"S5", "P5", "P5"}},
        {204, "", false, 1, {"P0"}},
        {299, "abc", true, 1, {"S3", "P3", "P3"}},
        {301, "moved", true, 0, {}},
        {404, "not here", true, 0, {}},
        {500, "broken", true, 0, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.status);
        const std::string number = std::to_string(row.status);
        const std::string path = "/status/" + number;
        server.route(path, reply(row.status, row.body, "", row.withLength));
        const fs::path file = dir.path() / number;
        FileDownloader downloader(network());
        test::RecordingOwner owner;
        EXPECT_EQ(downloader.Download(url(path).c_str(), file.c_str(), nullptr, nullptr, &owner),
                  row.result);
        EXPECT_EQ(owner.messages(), row.messages);
        if (row.result == 1) {
            EXPECT_EQ(readFile(file), row.body);
            EXPECT_EQ(downloader.error(), DownloadError::None);
        } else {
            EXPECT_EQ(downloader.errorText(), "NON_EXISTENT_URL");
            EXPECT_FALSE(fs::exists(file)); // refused before the file is made
        }
    }
}

TEST_F(FileDownloaderTest, ReadsAtMost1000BytesAtATimeAndEndsOnZeroWithoutALength) {
    const std::string body = bodyOf(2500);
    server.route("/nolength", reply(200, body, "", false));
    const fs::path file = dir.path() / "nolength";
    FileDownloader downloader(network(), [](const fs::path&) { return std::uint64_t(0); });
    test::RecordingOwner owner;
    // No length: no size message and no free-space check, even with no space at all.
    ASSERT_EQ(downloader.Download(url("/nolength").c_str(), file.c_str(), nullptr, nullptr, &owner),
              1);
    EXPECT_EQ(readFile(file), body);
    EXPECT_EQ(downloader.total(), 0);
    EXPECT_EQ(downloader.received(), 2500);
    const auto messages = owner.messages();
    ASSERT_GE(messages.size(), 4u);
    EXPECT_EQ(messages.back(), "P0"); // the end reports the unknown length
    EXPECT_EQ(messages[messages.size() - 2], "P2500");
    int before = 0;
    for (std::size_t i = 0; i + 1 < messages.size(); ++i) {
        ASSERT_EQ(messages[i][0], 'P') << messages[i];
        const int at = std::stoi(messages[i].substr(1));
        EXPECT_GT(at, before);
        EXPECT_LE(at - before, 1000);
        before = at;
    }
}

TEST_F(FileDownloaderTest, ReportsTheFirstErrorInTheOrderADownloadMeetsThem) {
    RefusingPort refusing;
    const std::string big = headers(200, 2000000);
    server.route("/ok", reply(200, "fine"));
    server.route("/missing", reply(404, "no"));
    server.route("/big", script({{big, ""}, {"", "never"}}));
    server.route("/fits", reply(200, bodyOf(1000000)));
    server.route("/silent", script({}));
    server.route("/nothing-yet", script({{"", "never"}}));
    server.route("/ssh", script({{"SSH-2.0-OpenSSH_9.2\r\n", ""}}));
    server.route("/first-read", script({{headers(200, 5000), ""}, {"", "never"}}));
    server.route("/dropped", script({{headers(200, 5000) + bodyOf(2000), ""}}));

    struct Row {
        const char* name;
        std::optional<std::string> url; // nullopt: a null pointer
        std::optional<fs::path> path;
        bool offline;
        bool refused;
        std::optional<std::uint64_t> freeSpace; // nullopt: the real file system
        DownloadError expected;
    };
    const fs::path file = dir.path() / "out";
    const fs::path nowhere = dir.path() / "no" / "such" / "folder" / "out";
    const Row rows[] = {
        {"no url", std::nullopt, file, false, false, {}, DownloadError::InvalidParameter},
        {"no path", url("/ok"), std::nullopt, false, false, {}, DownloadError::InvalidParameter},
        {"not a url", "ok", file, false, false, {}, DownloadError::CrackingUrl},
        {"cracked before offline",
         "ftp://127.0.0.1/ok",
         file,
         true,
         false,
         {},
         DownloadError::CrackingUrl},
        {"offline", url("/ok"), file, true, false, {}, DownloadError::OpeningInternetAgent},
        {"bad host",
         "http://bad..host/ok",
         file,
         false,
         false,
         {},
         DownloadError::CantCreateInternetConnection},
        {"refused", url("/ok"), file, false, true, {}, DownloadError::OpeningRequest},
        {"closed unanswered",
         url("/silent"),
         file,
         false,
         false,
         {},
         DownloadError::OpeningRequest},
        {"no headers in time",
         url("/nothing-yet"),
         file,
         false,
         false,
         {},
         DownloadError::OpeningRequest},
        {"not HTTP", url("/ssh"), file, false, false, {}, DownloadError::NonExistentUrl},
        {"status before space",
         url("/missing"),
         nowhere,
         false,
         false,
         {},
         DownloadError::NonExistentUrl},
        {"space unknown", url("/ok"), nowhere, false, false, {}, DownloadError::NotEnoughSpace},
        {"1953 kB needed, 1952 bytes free", url("/big"), file, false, false, 1952,
         DownloadError::NotEnoughSpace},
        {"976 kB needed, 976 bytes free", url("/fits"), file, false, false, 976,
         DownloadError::None},
        {"space before file", url("/big"), dir.path(), false, false, 0,
         DownloadError::NotEnoughSpace},
        {"destination is a folder",
         url("/ok"),
         dir.path(),
         false,
         false,
         {},
         DownloadError::CreatingFile},
        {"first read never comes",
         url("/first-read"),
         file,
         false,
         false,
         {},
         DownloadError::ConnectionProblem},
        {"disk full", url("/ok"), "/dev/full", false, false, {}, DownloadError::WritingFile},
        {"dropped mid-body", url("/dropped"), file, false, false, {}, DownloadError::ReadingUrl},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        NetworkConfig config = network();
        config.offline = row.offline;
        config.timeout = std::chrono::milliseconds(300);
        if (row.refused) {
            config.httpPort = refusing.number;
        }
        FreeSpaceQuery space = freeSpaceOf;
        if (row.freeSpace) {
            space = [free = *row.freeSpace](const fs::path&) { return free; };
        }
        FileDownloader downloader(config, space);
        const std::string urlText = row.url.value_or("");
        const std::string pathText = row.path.value_or("").string();
        const int result =
            downloader.Download(row.url ? urlText.c_str() : nullptr,
                                row.path ? pathText.c_str() : nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(result, row.expected == DownloadError::None ? 1 : 0);
        EXPECT_EQ(errorCode(downloader.error()), errorCode(row.expected));
    }
}

TEST_F(FileDownloaderTest, LeavesWhatWasWrittenWhenTheConnectionDrops) {
    const std::string body = bodyOf(5000);
    server.route("/dropped", script({{headers(200, 5000) + body.substr(0, 2000), ""}}));
    const fs::path file = dir.path() / "dropped";
    FileDownloader downloader(network());
    test::RecordingOwner owner;
    EXPECT_EQ(downloader.Download(url("/dropped").c_str(), file.c_str(), nullptr, nullptr, &owner),
              0);
    EXPECT_EQ(downloader.errorText(), "READING_URL");
    EXPECT_EQ(readFile(file), body.substr(0, 2000));
    EXPECT_EQ(downloader.total(), 5000);
    EXPECT_EQ(downloader.received(), 2000);
    EXPECT_EQ(owner.messages().front(), "S5000");
    EXPECT_EQ(owner.messages().back(), "P2000");
    EXPECT_EQ(openCount(file), 0);
}

TEST_F(FileDownloaderTest, GivesUpWhenTheFirstReadStallsAndKeepsTheFileOpenUntilAbort) {
    server.route("/stall", script({{headers(200, 5000), ""}, {bodyOf(5000), "go"}}));
    const fs::path file = dir.path() / "stall";
    NetworkConfig config = network();
    config.timeout = std::chrono::milliseconds(300);
    FileDownloader downloader(config);
    test::RecordingOwner owner;
    EXPECT_EQ(downloader.Download(url("/stall").c_str(), file.c_str(), nullptr, nullptr, &owner),
              0);
    server.openGate("go");
    EXPECT_EQ(downloader.errorText(), "CONNECTION_PROBLEM");
    EXPECT_EQ(owner.messages(), (std::vector<std::string>{"S5000"}));
    EXPECT_EQ(readFile(file), "");
    EXPECT_EQ(openCount(file), 1);
    downloader.Abort();
    EXPECT_EQ(openCount(file), 0);
}

TEST_F(FileDownloaderTest, WritesTheChunkBeforeAgainWhenALaterReadStalls) {
    const std::string body = bodyOf(2500);
    server.route("/later", script({{headers(200, 2500) + body.substr(0, 1500), ""},
                                   {body.substr(1500), "resume"}}));
    const fs::path file = dir.path() / "later";
    NetworkConfig config = network();
    config.timeout = std::chrono::seconds(1);
    FileDownloader downloader(config);
    test::RecordingOwner owner;
    // Only a read that timed out can take the count past the 1500 bytes sent so
    // far; the rest is let through once that has happened.
    owner.onProgress = [&](std::int32_t bytes) {
        if (bytes > 1500) {
            server.openGate("resume");
        }
    };
    ASSERT_EQ(downloader.Download(url("/later").c_str(), file.c_str(), nullptr, nullptr, &owner),
              1);
    EXPECT_EQ(downloader.errorText(), "CONNECTION_PROBLEM"); // written, yet the download went on

    const auto messages = owner.messages();
    const auto repeat = std::find_if(messages.begin(), messages.end(), [](const std::string& m) {
        return m[0] == 'P' && std::stoi(m.substr(1)) > 1500;
    });
    ASSERT_NE(repeat, messages.end());
    ASSERT_EQ(*(repeat - 1), "P1500");
    const std::size_t chunk = std::size_t(std::stoi(repeat->substr(1))) - 1500;
    ASSERT_GT(chunk, 0u);
    ASSERT_LE(chunk, 1000u);
    EXPECT_EQ(readFile(file),
              body.substr(0, 1500) + body.substr(1500 - chunk, chunk) + body.substr(1500));
    EXPECT_EQ(messages.back(), "P2500"); // the end reports the content length
    EXPECT_EQ(downloader.received(), std::int32_t(2500 + chunk));
}

TEST_F(FileDownloaderTest, StopsFromAnotherThreadWithoutWaitingForTheServer) {
    for (const bool byStopToken : {false, true}) {
        SCOPED_TRACE(byStopToken ? "stop token" : "Abort");
        const std::string path = byStopToken ? "/token" : "/abort";
        server.route(path, script({{headers(200, 5000) + bodyOf(1000), ""}, {"", "never"}}));
        const fs::path file = dir.path() / path.substr(1);
        NetworkConfig config = network();
        config.timeout = std::chrono::seconds(100);
        FileDownloader downloader(config);
        test::RecordingOwner owner;
        std::stop_source stop;
        std::jthread canceller([&] {
            if (owner.waitForAny()) {
                if (byStopToken) {
                    stop.request_stop();
                } else {
                    downloader.Abort();
                }
            }
        });
        EXPECT_EQ(downloader.Download(url(path).c_str(), file.c_str(), nullptr, nullptr, &owner,
                                      stop.get_token()),
                  0);
        EXPECT_EQ(downloader.error(), DownloadError::None); // a stop is not a fault
        EXPECT_EQ(openCount(file), 0);
    }
}

TEST_F(FileDownloaderTest, KeepsTheLastErrorUntilANewOneIsWritten) {
    server.route("/missing", reply(404, ""));
    server.route("/ok", reply(200, "twelve bytes"));
    const fs::path file = dir.path() / "file";
    FileDownloader downloader(network());
    EXPECT_EQ(downloader.Download(url("/missing").c_str(), file.c_str(), nullptr, nullptr, nullptr),
              0);
    EXPECT_EQ(downloader.Download(url("/ok").c_str(), file.c_str(), nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(downloader.errorText(), "NON_EXISTENT_URL");
    EXPECT_EQ(downloader.total(), 12);
    EXPECT_EQ(downloader.received(), 12);
}

TEST_F(FileDownloaderTest, GoesSecureByCredentialsOrSchemeOnTheConfiguredPorts) {
    server.route("/x", reply(200, "plain"));
    struct Row {
        const char* scheme;
        const char* user;
        const char* password;
        bool secure;
    };
    const Row rows[] = {
        {"http", nullptr, nullptr, false}, {"http", "", "", false},
        {"http", "me", nullptr, false},    {"http", "", "secret", true},
        {"http", "me", "", true},          {"https", nullptr, nullptr, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.scheme) + " " + (row.user ? row.user : "null") + ":" +
                     (row.password ? row.password : "null"));
        const std::size_t before = server.requests().size();
        const fs::path file = dir.path() / "secure";
        FileDownloader downloader(network());
        // The server speaks plain HTTP only: a secure transfer's handshake fails.
        const std::string address = std::string(row.scheme) + "://127.0.0.1:1/x";
        EXPECT_EQ(
            downloader.Download(address.c_str(), file.c_str(), row.user, row.password, nullptr),
            row.secure ? 0 : 1);
        const auto requests = server.requests();
        ASSERT_EQ(requests.size(), before + 1);
        EXPECT_EQ(requests.back().tls, row.secure);
        if (row.secure) {
            EXPECT_EQ(downloader.errorText(), "OPENING_REQUEST");
        }
    }
}

TEST_F(FileDownloaderTest, AsksForThePathWithItsOwnAgentOnTheConfiguredPort) {
    server.route("/zonara/version40.dat", reply(200, "0364\r\n"));
    const fs::path file = dir.path() / "version";
    FileDownloader downloader(network());
    ASSERT_EQ(downloader.Download("http://127.0.0.1:8080/zonara/version40.dat?from=test",
                                  file.c_str(), nullptr, nullptr, nullptr),
              1);
    const test::HttpRequest request = server.requests().back();
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.target, "/zonara/version40.dat?from=test");
    EXPECT_EQ(request.header("User-Agent"), "Pocket Vexel Application");
    EXPECT_EQ(request.body, "");
    EXPECT_EQ(readFile(file), "0364\r\n");
}

TEST_F(FileDownloaderTest, FetchesIntoAFileThatAppearsOnlyWhole) {
    const std::string body = bodyOf(3000);
    server.route("/whole", reply(200, body));
    server.route("/dropped", script({{headers(200, 3000) + body.substr(0, 1500), ""}}));
    const fs::path out = dir.path() / "fetched.xml";
    test::writeFile(out, "what was there");
    struct Row {
        const char* path;
        bool ok;
        DownloadError error;
        std::string content;
    };
    const Row rows[] = {
        {"/dropped", false, DownloadError::ReadingUrl, "what was there"},
        {"/missing", false, DownloadError::NonExistentUrl, "what was there"},
        {"/whole", true, DownloadError::None, body},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.path);
        const FetchResult result = fetchFile(network(), url(row.path), out, nullptr);
        EXPECT_EQ(result.ok, row.ok);
        EXPECT_EQ(errorCode(result.error), errorCode(row.error));
        EXPECT_EQ(readFile(out), row.content);
        EXPECT_FALSE(fs::exists(dir.path() / "fetched.xml.part"));
    }
}

} // namespace zonara

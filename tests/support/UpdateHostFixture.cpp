#include "support/UpdateHostFixture.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "support/ShippedFiles.h"

namespace zonara::test {

namespace {

using Clock = std::chrono::steady_clock;

std::vector<char*> argvOf(std::vector<std::string>& words) {
    std::vector<char*> argv;
    for (std::string& w : words) {
        argv.push_back(w.data());
    }
    argv.push_back(nullptr);
    return argv;
}

// A port nothing listens on right now; nginx may still lose it to another
// program, and the caller then tries again.
std::uint16_t freePort() {
    const int s = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    std::uint16_t port = 0;
    if (s >= 0 && ::bind(s, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
        ::getsockname(s, reinterpret_cast<sockaddr*>(&address), &length) == 0) {
        port = ntohs(address.sin_port);
    }
    if (s >= 0) {
        ::close(s);
    }
    return port;
}

bool accepts(std::uint16_t port) {
    const int s = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    const bool connected =
        s >= 0 && ::connect(s, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    if (s >= 0) {
        ::close(s);
    }
    return connected;
}

// Waits for a child, at most the limit; true when it was reaped.
bool reap(pid_t pid, Clock::duration limit, int* status) {
    const auto deadline = Clock::now() + limit;
    while (true) {
        const pid_t done = ::waitpid(pid, status, WNOHANG);
        if (done == pid || done < 0) {
            return true;
        }
        if (Clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace

ProgramRun runProgram(const std::vector<std::string>& words) {
    ProgramRun run;
    int out[2];
    if (::pipe2(out, O_CLOEXEC) != 0) {
        return run;
    }
    std::vector<std::string> copy = words;
    std::vector<char*> argv = argvOf(copy);
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    ::close(out[1]);
    if (pid < 0) {
        ::close(out[0]);
        return run;
    }
    const auto deadline = Clock::now() + std::chrono::seconds(60);
    char buffer[4096];
    while (Clock::now() < deadline) {
        pollfd p{out[0], POLLIN, 0};
        if (::poll(&p, 1, 100) <= 0) {
            continue;
        }
        const ssize_t n = ::read(out[0], buffer, sizeof buffer);
        if (n <= 0) {
            break;
        }
        run.out.append(buffer, std::size_t(n));
    }
    ::close(out[0]);
    int status = 0;
    if (!reap(pid, std::chrono::seconds(5), &status)) {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, &status, 0);
    }
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

UpdateHost::UpdateHost(const std::filesystem::path& dataDir,
                       const std::vector<std::filesystem::path>& extras,
                       const std::filesystem::path& weatherGateway,
                       const std::vector<std::string>& gatewaySettings) {
    if (publish(dataDir, extras)) {
        start(weatherGateway, gatewaySettings);
    }
}

UpdateHost::~UpdateHost() {
    stop();
}

bool UpdateHost::publish(const std::filesystem::path& dataDir,
                         const std::vector<std::filesystem::path>& extras) {
    std::vector<std::string> argv = {"bash",
                                     (sourceDir() / "scripts" / "publish-update-tree.sh").string(),
                                     "--data", dataDir.string()};
    for (const auto& extra : extras) {
        argv.push_back("--add");
        argv.push_back(extra.string());
    }
    argv.push_back(tree().string());
    const ProgramRun run = runProgram(argv);
    if (run.exitCode != 0 || run.out.size() < 4) {
        error_ = "publishing " + dataDir.string() + " failed";
        return false;
    }
    stamp_ = run.out.substr(0, 4);
    return true;
}

bool UpdateHost::start(const std::filesystem::path& weatherGateway,
                       const std::vector<std::string>& gatewaySettings) {
    const std::string script = (sourceDir() / "scripts" / "serve-update-host.sh").string();
    const std::string runDir = (dir.path() / "run").string();
    for (int attempt = 0; attempt < 5; ++attempt) {
        port_ = freePort();
        // The run folder goes through env: the child does nothing but exec.
        std::vector<std::string> words = {"env", "ZONARA_HOST_RUN_DIR=" + runDir};
        if (!weatherGateway.empty()) {
            words.push_back("ZONARA_WEATHER_GATEWAY=" + weatherGateway.string());
        }
        words.insert(words.end(), gatewaySettings.begin(), gatewaySettings.end());
        for (const std::string& word :
             {std::string("bash"), script, std::to_string(port_), tree().string()}) {
            words.push_back(word);
        }
        std::vector<char*> argv = argvOf(words);
        const pid_t parent = ::getpid();
        const pid_t pid = ::fork();
        if (pid == 0) {
            ::setpgid(0, 0);
            // Also stopped when the test program dies without its destructors.
            ::prctl(PR_SET_PDEATHSIG, SIGTERM);
            if (::getppid() != parent) {
                ::_exit(1);
            }
            const int null = ::open("/dev/null", O_WRONLY);
            ::dup2(null, STDERR_FILENO);
            ::execvp(argv[0], argv.data());
            ::_exit(127);
        }
        if (pid < 0) {
            break;
        }
        ::setpgid(pid, pid);
        group = pid;
        const auto deadline = Clock::now() + std::chrono::seconds(10);
        bool exited = false;
        while (Clock::now() < deadline) {
            if (accepts(port_)) {
                error_.clear();
                return true;
            }
            int status = 0;
            if (::waitpid(pid, &status, WNOHANG) == pid) {
                exited = true;
                group = -1;
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        if (!exited) {
            stop();
        }
    }
    error_ = "nginx did not start (see " + runDir + "/error.log)";
    return false;
}

std::string UpdateHost::errorLog() const {
    return readFile(dir.path() / "run" / "error.log");
}

std::string UpdateHost::accessLog() const {
    return readFile(dir.path() / "run" / "access.log");
}

void UpdateHost::stop() {
    if (group <= 0) {
        return;
    }
    ::kill(-group, SIGTERM);
    int status = 0;
    if (!reap(group, std::chrono::seconds(5), &status)) {
        ::kill(-group, SIGKILL);
        ::waitpid(group, &status, 0);
    }
    // nginx and fcgiwrap are in the same group; a straggler gets the same end.
    const auto deadline = Clock::now() + std::chrono::seconds(5);
    while (::kill(-group, 0) == 0) {
        if (Clock::now() >= deadline) {
            ::kill(-group, SIGKILL);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    group = -1;
}

} // namespace zonara::test

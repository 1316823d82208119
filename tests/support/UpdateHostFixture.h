#pragma once
// The update host as deployed, for tests and benchmarks: a tree made by
// scripts/publish-update-tree.sh, served by nginx through
// scripts/serve-update-host.sh on a free 127.0.0.1 port.

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace zonara::test {

struct ProgramRun {
    int exitCode = -1;
    std::string out; // what it wrote on stdout
};

// Runs a program with arguments (no shell) and waits for it, at most 60 s.
ProgramRun runProgram(const std::vector<std::string>& argv);

class UpdateHost {
  public:
    // Publishes dataDir's world files (and the extra files) and starts the
    // host, with the weather gateway program when one is named, and the
    // serving script's gateway settings ("ZONARA_METNO_URL=...", ...). ok()
    // tells whether both worked; error() says what did not.
    explicit UpdateHost(const std::filesystem::path& dataDir,
                        const std::vector<std::filesystem::path>& extras = {},
                        const std::filesystem::path& weatherGateway = {},
                        const std::vector<std::string>& gatewaySettings = {});
    // Stops nginx and fcgiwrap and removes the tree.
    ~UpdateHost();
    UpdateHost(const UpdateHost&) = delete;
    UpdateHost& operator=(const UpdateHost&) = delete;

    bool ok() const { return error_.empty(); }
    const std::string& error() const { return error_; }
    std::uint16_t port() const { return port_; }
    // The published tree: zonara/version40.dat and the rest.
    std::filesystem::path tree() const { return dir.path() / "tree"; }
    // nginx's error log, for failure messages.
    std::string errorLog() const;
    // nginx's access log: one line per request it answered.
    std::string accessLog() const;
    // The stamp the last publishing printed.
    const std::string& stamp() const { return stamp_; }

    // Publishes again into the same tree; false (with error()) when the
    // script failed.
    bool publish(const std::filesystem::path& dataDir,
                 const std::vector<std::filesystem::path>& extras = {});
    void stop();

  private:
    bool start(const std::filesystem::path& weatherGateway,
               const std::vector<std::string>& gatewaySettings);

    TempDir dir;
    std::uint16_t port_ = 0;
    pid_t group = -1;
    std::string stamp_;
    std::string error_;
};

} // namespace zonara::test

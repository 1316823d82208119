// Downloads from the update host under nginx on 127.0.0.1: a 5 MB file in the
// downloader's 1000-byte reads (against one libcurl transfer that writes
// whatever it receives), and an update run that finds no new data.

#include <benchmark/benchmark.h>
#include <curl/curl.h>
#include <sys/resource.h>

#include <cstdio>
#include <filesystem>
#include <optional>
#include <vector>

#include "net/DataUpdate.h"
#include "net/FileDownloader.h"
#include "support/ShippedFiles.h"
#include "support/TempDir.h"
#include "support/UpdateHostFixture.h"

namespace {

namespace fs = std::filesystem;
using zonara::test::TempDir;
using zonara::test::UpdateHost;

constexpr std::size_t bigSize = 5 * 1000 * 1000;

double cpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) { return double(t.tv_sec) + t.tv_usec / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// The shipped world plus a 5 MB file at the top of the tree.
struct Host {
    Host() {
        zonara::test::writeFile(big, std::string(bigSize, 'z'));
        host.emplace(zonara::test::sourceDir() / "data", std::vector<fs::path>{big});
    }
    TempDir files;
    fs::path big = files.path() / "big.bin";
    std::optional<UpdateHost> host;
};

class CountingOwner : public zonara::DownloadOwner {
  public:
    void downloadSize(std::int32_t) override {}
    void downloadProgress(std::int32_t) override { ++messages; }
    std::int64_t messages = 0;
};

void reportCpu(benchmark::State& state, double cpu, std::size_t bytes) {
    state.SetBytesProcessed(std::int64_t(bytes));
    state.counters["cpu_ms_per_MB"] = bytes > 0 ? cpu * 1000 / (double(bytes) / 1e6) : 0;
}

void BM_Download5MB(benchmark::State& state) {
    Host h;
    if (!h.host->ok()) {
        state.SkipWithError(h.host->error().c_str());
        return;
    }
    zonara::NetworkConfig network;
    network.httpPort = h.host->port();
    const fs::path out = h.files.path() / "out.bin";
    zonara::FileDownloader downloader(network);
    CountingOwner owner;
    std::size_t bytes = 0;
    const double cpuBefore = cpuSeconds();
    for (auto _ : state) {
        if (downloader.Download("http://127.0.0.1/big.bin", out.c_str(), nullptr, nullptr,
                                &owner) != 1 ||
            fs::file_size(out) != bigSize) {
            state.SkipWithError("download failed");
            return;
        }
        bytes += bigSize;
    }
    reportCpu(state, cpuSeconds() - cpuBefore, bytes);
    state.counters["progress_per_MB"] = double(owner.messages) / (double(bytes) / 1e6);
}
BENCHMARK(BM_Download5MB)->UseRealTime()->Unit(benchmark::kMillisecond);

std::size_t writeToFile(char* data, std::size_t, std::size_t size, void* file) {
    return std::fwrite(data, 1, size, static_cast<std::FILE*>(file));
}

// The same file in one libcurl transfer with no reads of our own: the floor.
void BM_Download5MBPlainLibcurl(benchmark::State& state) {
    Host h;
    if (!h.host->ok()) {
        state.SkipWithError(h.host->error().c_str());
        return;
    }
    const std::string url = "http://127.0.0.1:" + std::to_string(h.host->port()) + "/big.bin";
    const fs::path out = h.files.path() / "out.bin";
    CURL* curl = curl_easy_init();
    std::size_t bytes = 0;
    const double cpuBefore = cpuSeconds();
    for (auto _ : state) {
        std::FILE* file = std::fopen(out.c_str(), "wb");
        curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
        curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &writeToFile);
        curl_easy_setopt(curl, CURLOPT_WRITEDATA, file);
        const CURLcode result = curl_easy_perform(curl);
        std::fclose(file);
        if (result != CURLE_OK || fs::file_size(out) != bigSize) {
            state.SkipWithError("download failed");
            break;
        }
        bytes += bigSize;
    }
    curl_easy_cleanup(curl);
    reportCpu(state, cpuSeconds() - cpuBefore, bytes);
}
BENCHMARK(BM_Download5MBPlainLibcurl)->UseRealTime()->Unit(benchmark::kMillisecond);

class QuietSink : public zonara::UpdateSink {
  public:
    void status(zonara::UpdateStatus) override {}
    void progressRange(std::uint16_t, std::int32_t) override {}
    void progressPosition(std::int32_t) override {}
};

// The host publishes the shipped data and the installation has them already.
void BM_UpdateFindsNoNewData(benchmark::State& state) {
    UpdateHost host(zonara::test::sourceDir() / "data");
    if (!host.ok()) {
        state.SkipWithError(host.error().c_str());
        return;
    }
    TempDir root;
    const zonara::Paths paths = zonara::test::copyShippedWorld(root.path());
    fs::copy_file(zonara::test::sourceDir() / "data" / "version40.dat",
                  paths.dataFile("version40.dat"));
    zonara::Config config;
    config.network.httpPort = host.port();
    config.update.primary = "127.0.0.1";
    QuietSink sink;
    for (auto _ : state) {
        if (zonara::runDataUpdate(paths, config, sink) != zonara::UpdateOutcome::NoNewData) {
            state.SkipWithError("the run found new data or failed");
            return;
        }
    }
}
BENCHMARK(BM_UpdateFindsNoNewData)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

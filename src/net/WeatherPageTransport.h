#pragma once
// The weather run's transfers: the connection check and a page fetcher.

#include <stop_token>
#include <string>

#include "net/Config.h"
#include "net/ConnectionCheck.h"
#include "net/PageFetcher.h"
#include "net/WeatherWorker.h"

namespace zonara {

class WeatherPageTransport final : public WeatherTransport {
  public:
    // A stop request aborts the page being read.
    WeatherPageTransport(const NetworkConfig& network, std::stop_token stop)
        : network(network), fetcher(network), stop(std::move(stop)) {}

    bool ensureConnection(const std::string& host) override {
        return EnsureInternetConnection(slot, network, host);
    }
    bool open(const std::string& host) override { return fetcher.Open(host); }
    std::optional<std::string> get(const std::string& path) override {
        if (!fetcher.Get(path, stop))
            return std::nullopt;
        return fetcher.response();
    }
    void close() override { fetcher.Close(); }

  private:
    NetworkConfig network;
    ConnectionSlot slot; // one run's connection, kept across its attempts
    PageFetcher fetcher;
    std::stop_token stop;
};

} // namespace zonara

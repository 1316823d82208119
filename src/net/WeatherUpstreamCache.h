#pragma once
// Keeps the provider's answers on disk until they expire.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zonara {

struct CachedAnswer {
    std::int64_t expires = 0; // seconds since 1970, UTC
    std::string lastModified; // the provider's header, for a conditional request
    std::string body;

    friend bool operator==(const CachedAnswer&, const CachedAnswer&) = default;
};

class WeatherUpstreamCache {
  public:
    // An empty folder keeps nothing.
    explicit WeatherUpstreamCache(std::filesystem::path folder) : folder(std::move(folder)) {}

    // Nothing when there is no entry or it is damaged.
    std::optional<CachedAnswer> read(std::string_view key) const;
    // Written whole through a temporary file; false when it could not be.
    bool write(std::string_view key, const CachedAnswer& answer) const;

    std::filesystem::path fileFor(std::string_view key) const;

  private:
    std::filesystem::path folder;
};

} // namespace zonara

#pragma once
// Downloads one URL to a file that appears only when the download is whole.

#include <filesystem>
#include <stop_token>
#include <string_view>

#include "net/Config.h"
#include "net/DownloadError.h"
#include "net/DownloadOwner.h"

namespace zonara {

struct FetchResult {
    bool ok = false;
    // The downloader's last code; after a success it can still tell of a read
    // that timed out and was let pass.
    DownloadError error = DownloadError::None;
};

// Downloads into "<out>.part" beside out and renames it over out on success;
// on failure the partial file is removed and out is untouched.
FetchResult fetchFile(const NetworkConfig& network, std::string_view url,
                      const std::filesystem::path& out, DownloadOwner* owner,
                      std::stop_token stop = {});

} // namespace zonara

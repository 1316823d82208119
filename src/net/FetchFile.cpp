#include "net/FetchFile.h"

#include <string>
#include <system_error>

#include "net/FileDownloader.h"

namespace zonara {

FetchResult fetchFile(const NetworkConfig& network, std::string_view url,
                      const std::filesystem::path& out, DownloadOwner* owner,
                      std::stop_token stop) {
    std::filesystem::path partial = out;
    partial += ".part";
    const std::string urlText(url);
    FetchResult result;
    {
        FileDownloader downloader(network);
        result.ok = downloader.Download(urlText.c_str(), partial.c_str(), nullptr, nullptr, owner,
                                        std::move(stop)) == 1;
        result.error = downloader.error();
    } // the downloader closes a file a failed first read left open
    std::error_code error;
    if (result.ok) {
        std::filesystem::rename(partial, out, error);
        if (error) {
            result.ok = false;
            result.error = DownloadError::CreatingFile;
        }
    }
    if (!result.ok) {
        std::filesystem::remove(partial, error);
    }
    return result;
}

} // namespace zonara

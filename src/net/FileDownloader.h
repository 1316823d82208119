#pragma once
// Downloads one URL into one file in reads of at most 1000 bytes, with
// progress for its owner, a free-space check and a textual error code.

#include <cstdint>
#include <memory>
#include <mutex>
#include <stop_token>
#include <string_view>

#include "net/Config.h"
#include "net/DownloadError.h"
#include "net/DownloadOwner.h"
#include "net/FreeSpace.h"

namespace zonara {

class HttpTransfer;

class FileDownloader {
  public:
    static constexpr std::size_t readSize = 1000;
    static constexpr std::string_view userAgent = "Pocket Vexel Application";

    explicit FileDownloader(NetworkConfig network = {}, FreeSpaceQuery freeSpace = freeSpaceOf);
    ~FileDownloader();
    FileDownloader(const FileDownloader&) = delete;
    FileDownloader& operator=(const FileDownloader&) = delete;

    // Returns 1 when the whole body is in the file, else 0 with the code in
    // error(). url and path missing (null) give INVALID_PARAMETER; user and
    // password may be null; so may the owner. Secure mode (https on the
    // configured HTTPS port) when both credentials are given and one is not
    // empty, or for an https URL. The configured time limit bounds the wait
    // for the response's headers (OPENING_REQUEST) and for each read. A stop
    // request ends the download as Abort does.
    int Download(const char* url, const char* path, const char* user, const char* password,
                 DownloadOwner* owner, std::stop_token stop = {});

    // From any thread: ends the download in progress (it returns 0 and keeps
    // the error it had) and closes a file a failed download left open.
    void Abort();

    // The last error written; a new download does not clear it.
    DownloadError error() const { return lastError; }
    std::string_view errorText() const { return errorCode(lastError); }
    std::int32_t total() const { return totalBytes; }
    std::int32_t received() const { return receivedBytes; }

  private:
    int fail(DownloadError error);
    void closeFile();
    void dropTransfer();

    NetworkConfig network;
    FreeSpaceQuery freeSpace;
    std::mutex guard; // the transfer and the file, between the download and Abort
    std::unique_ptr<HttpTransfer> transfer;
    int file = -1;
    std::int32_t totalBytes = 0;
    std::int32_t receivedBytes = 0;
    DownloadError lastError = DownloadError::None;
};

} // namespace zonara

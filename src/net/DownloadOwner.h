#pragma once
// What a download tells its owner: the size once the headers are in, and the
// bytes written after each chunk. Called on the downloading thread, before the
// download goes on.

#include <cstdint>

namespace zonara {

class DownloadOwner {
  public:
    virtual ~DownloadOwner() = default;
    // Once, after the headers, only when the server gave a content length.
    virtual void downloadSize(std::int32_t length) = 0;
    // After each chunk with the bytes written so far; once more at the end with
    // the content length (0 when it was unknown).
    virtual void downloadProgress(std::int32_t bytes) = 0;
};

} // namespace zonara

#pragma once
// The downloader's error codes, in the order a download can meet them.

#include <string_view>

namespace zonara {

enum class DownloadError {
    None,
    InvalidParameter,
    CrackingUrl,
    OpeningInternetAgent,
    CantCreateInternetConnection,
    OpeningRequest,
    NonExistentUrl,
    GettingFreeSpace,
    NotEnoughSpace,
    CreatingFile,
    ConnectionProblem,
    WritingFile,
    ReadingUrl,
};

// The code as text ("NON_EXISTENT_URL"); empty for None.
std::string_view errorCode(DownloadError error);

} // namespace zonara

#include "net/DownloadError.h"

namespace zonara {

std::string_view errorCode(DownloadError error) {
    switch (error) {
    case DownloadError::None:
        return "";
    case DownloadError::InvalidParameter:
        return "INVALID_PARAMETER";
    case DownloadError::CrackingUrl:
        return "CRACKING_URL";
    case DownloadError::OpeningInternetAgent:
        return "OPENING_INTERNET_AGENT";
    case DownloadError::CantCreateInternetConnection:
        return "CANT_CREATE_INTERNET_CONNECTION";
    case DownloadError::OpeningRequest:
        return "OPENING_REQUEST";
    case DownloadError::NonExistentUrl:
        return "NON_EXISTENT_URL";
    case DownloadError::GettingFreeSpace:
        return "GETTING_FREESPACE";
    case DownloadError::NotEnoughSpace:
        return "NOT_ENOUGH_SPACE";
    case DownloadError::CreatingFile:
        return "CREATING_FILE";
    case DownloadError::ConnectionProblem:
        return "CONNECTION_PROBLEM";
    case DownloadError::WritingFile:
        return "WRITING_FILE";
    case DownloadError::ReadingUrl:
        return "READING_URL";
    }
    return "";
}

} // namespace zonara

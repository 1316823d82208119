#include "net/UpdateStatus.h"

namespace zonara {

std::string_view statusText(UpdateStatus status) {
    switch (status) {
    case UpdateStatus::PressUpdate:
        return "Press'Update' to start";
    case UpdateStatus::DialConnection:
        return "Dial Connection";
    case UpdateStatus::UnableToConnect:
        return "Unable to Connect";
    case UpdateStatus::CheckingForNewData:
        return "Checking for new data";
    case UpdateStatus::NoNewData:
        return "No new data";
    case UpdateStatus::ServerError:
        return "Server error, try later";
    case UpdateStatus::DownloadCityData:
        return "Download City Data";
    case UpdateStatus::DownloadCountryData:
        return "Download Country Data";
    case UpdateStatus::DownloadDstData:
        return "Download DST Data";
    case UpdateStatus::InstallData:
        return "Install Data";
    case UpdateStatus::Finished:
        return "Finished";
    case UpdateStatus::FailedToGetAllFiles:
        return "Failed to get all the files";
    }
    return "";
}

} // namespace zonara

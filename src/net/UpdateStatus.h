#pragma once
// The data update's status texts and how a run ends.

#include <string_view>

namespace zonara {

// The values are the texts' string ids.
enum class UpdateStatus {
    PressUpdate = 40130,
    DialConnection = 40119,
    UnableToConnect = 40088,
    CheckingForNewData = 40166,
    NoNewData = 40167,
    ServerError = 40125,
    DownloadCityData = 40120,
    DownloadCountryData = 40121,
    DownloadDstData = 40122,
    InstallData = 40123,
    Finished = 40124,
    FailedToGetAllFiles = 40126,
};

// The English text, exactly as the user sees it.
std::string_view statusText(UpdateStatus status);

enum class UpdateOutcome {
    Finished,            // new files installed
    NoNewData,           // the installed data are current
    UnableToConnect,     // no connection to a host
    ServerError,         // the version file from neither host
    FailedToGetAllFiles, // a data file missing or not valid world data; nothing installed
    Cancelled,           // stopped on request; nothing installed
};

// Finished and NoNewData: the installed data are the newest there are.
inline bool succeeded(UpdateOutcome outcome) {
    return outcome == UpdateOutcome::Finished || outcome == UpdateOutcome::NoNewData;
}

} // namespace zonara

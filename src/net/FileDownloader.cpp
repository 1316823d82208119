#include "net/FileDownloader.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "net/ConnectionCheck.h"
#include "net/HttpTransfer.h"
#include "net/TransferTarget.h"

namespace zonara {

namespace {

bool writeAll(int file, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(file, data, size);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        data += n;
        size -= std::size_t(n);
    }
    return true;
}

std::filesystem::path folderOf(const char* path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? std::filesystem::path(".") : folder;
}

} // namespace

FileDownloader::FileDownloader(NetworkConfig network, FreeSpaceQuery freeSpace)
    : network(network), freeSpace(std::move(freeSpace)) {}

FileDownloader::~FileDownloader() {
    dropTransfer();
    closeFile();
}

int FileDownloader::fail(DownloadError error) {
    lastError = error;
    dropTransfer();
    return 0;
}

void FileDownloader::closeFile() {
    const std::lock_guard lock(guard);
    if (file >= 0) {
        ::close(file);
        file = -1;
    }
}

void FileDownloader::dropTransfer() {
    std::unique_ptr<HttpTransfer> old;
    {
        const std::lock_guard lock(guard);
        old = std::move(transfer);
    }
    // Closed outside the lock: Abort only needs to know it is gone.
}

void FileDownloader::Abort() {
    const std::lock_guard lock(guard);
    if (transfer) {
        transfer->abort(); // the download closes its file and returns
        return;
    }
    if (file >= 0) {
        ::close(file);
        file = -1;
    }
}

int FileDownloader::Download(const char* url, const char* path, const char* user,
                             const char* password, DownloadOwner* owner, std::stop_token stop) {
    closeFile(); // one left open by a first read that never came
    totalBytes = 0;
    receivedBytes = 0;
    if (url == nullptr || path == nullptr) {
        return fail(DownloadError::InvalidParameter);
    }
    bool secure = user != nullptr && password != nullptr && (*user != '\0' || *password != '\0');

    const std::optional<TransferTarget> target = crackUrl(url);
    if (!target) {
        return fail(DownloadError::CrackingUrl);
    }
    secure = secure || target->https;

    if (network.offline) {
        return fail(DownloadError::OpeningInternetAgent);
    }
    auto made = std::make_unique<HttpTransfer>();
    if (!made->ready()) {
        return fail(DownloadError::OpeningInternetAgent);
    }
    HttpTransfer* t = made.get();
    {
        const std::lock_guard lock(guard);
        transfer = std::move(made);
    }
    const std::stop_callback onStop(stop, [this] { Abort(); });

    const std::uint16_t port = secure ? network.httpsPort : network.httpPort;
    if (!validHostName(target->host) || port == 0) {
        return fail(DownloadError::CantCreateInternetConnection);
    }

    HttpTransfer::Request request;
    request.url = transferUrl(*target, secure, port);
    request.userAgent = std::string(userAgent);
    request.user = user;
    request.password = password;
    request.direct = isLoopbackHost(target->host); // no proxy can reach our own loopback
    switch (t->begin(request, network.timeout)) {
    case HttpTransfer::Begin::Ok:
        break;
    case HttpTransfer::Begin::Unreadable:
        return fail(DownloadError::NonExistentUrl);
    case HttpTransfer::Begin::Aborted:
        dropTransfer();
        return 0;
    case HttpTransfer::Begin::Failed:
    case HttpTransfer::Begin::TimedOut:
        return fail(DownloadError::OpeningRequest);
    }
    if (t->status() < 200 || t->status() > 299) {
        return fail(DownloadError::NonExistentUrl);
    }

    std::int64_t need = -1;
    if (const auto length = t->contentLength()) {
        const auto word = std::uint32_t(*length); // the length as a 32-bit number
        totalBytes = std::int32_t(word);
        if (owner != nullptr) {
            owner->downloadSize(totalBytes);
        }
        need = word / 1024; // kilobytes, compared with bytes below: deliberately lenient
    }
    if (need >= 0) {
        const std::optional<std::uint64_t> free = freeSpace(folderOf(path));
        if (!free) {
            lastError = DownloadError::GettingFreeSpace; // reported as lack of space
            return fail(DownloadError::NotEnoughSpace);
        }
        if (*free < std::uint64_t(need)) {
            return fail(DownloadError::NotEnoughSpace);
        }
    }

    bool created = false;
    {
        const std::lock_guard lock(guard);
        file = ::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        created = file >= 0;
    }
    if (!created) {
        return fail(DownloadError::CreatingFile);
    }

    std::array<char, readSize> buffer{};
    HttpTransfer::Read last = t->read(buffer.data(), buffer.size(), network.timeout);
    if (last.result == HttpTransfer::Result::TimedOut) {
        // The file stays open until Abort or the next download.
        return fail(DownloadError::ConnectionProblem);
    }
    while (last.result == HttpTransfer::Result::Data || last.result == HttpTransfer::Result::End) {
        if (last.bytes == 0) {
            closeFile();
            if (owner != nullptr) {
                owner->downloadProgress(totalBytes);
            }
            dropTransfer();
            return 1;
        }
        if (!writeAll(file, buffer.data(), last.bytes)) {
            closeFile();
            return fail(DownloadError::WritingFile);
        }
        receivedBytes += std::int32_t(last.bytes);
        if (owner != nullptr) {
            owner->downloadProgress(receivedBytes);
        }
        const HttpTransfer::Read next = t->read(buffer.data(), buffer.size(), network.timeout);
        if (next.result == HttpTransfer::Result::TimedOut) {
            // Deliberately lenient: go on with the read before, so that chunk is
            // written once more.
            lastError = DownloadError::ConnectionProblem;
        } else {
            last = next;
        }
    }
    closeFile();
    if (last.result == HttpTransfer::Result::Aborted) {
        dropTransfer();
        return 0;
    }
    return fail(DownloadError::ReadingUrl);
}

} // namespace zonara

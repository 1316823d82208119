#include "core/FileWriter.h"

#include <fstream>
#include <system_error>

namespace zonara {

namespace {

std::filesystem::path temporaryFor(const std::filesystem::path& file) {
    std::filesystem::path temporary = file;
    temporary += ".new";
    return temporary;
}

bool writeTemporary(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream out(temporaryFor(file), std::ios::binary | std::ios::trunc);
    return out && out.write(bytes.data(), std::streamsize(bytes.size())) && out.flush();
}

} // namespace

bool replaceFiles(std::initializer_list<FileContents> files) {
    bool written = true;
    for (const auto& [file, bytes] : files) {
        written = written && writeTemporary(file, bytes);
    }
    std::error_code error;
    for (const auto& [file, bytes] : files) {
        if (written) {
            std::filesystem::rename(temporaryFor(file), file, error);
            written = !error;
        }
        std::error_code ignored;
        std::filesystem::remove(temporaryFor(file), ignored);
    }
    return written;
}

} // namespace zonara

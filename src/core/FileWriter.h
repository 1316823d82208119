#pragma once
// Writes files whole, so that a reader never sees one half-written.

#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace zonara {

using FileContents = std::pair<std::filesystem::path, std::string_view>;

// Each file is written beside its target and renamed over it only when all of
// them were written; on failure the targets stay as they were.
bool replaceFiles(std::initializer_list<FileContents> files);

} // namespace zonara

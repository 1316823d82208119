#pragma once
// How many bytes a folder's file system has free for an ordinary user.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

namespace zonara {

// nullopt when the file system cannot be asked (no such folder).
std::optional<std::uint64_t> freeSpaceOf(const std::filesystem::path& folder);

using FreeSpaceQuery = std::function<std::optional<std::uint64_t>(const std::filesystem::path&)>;

} // namespace zonara

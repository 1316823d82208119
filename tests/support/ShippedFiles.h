#pragma once
// The repository's shipped files, for tests and benchmarks that use them.

#include <filesystem>

#include "core/Paths.h"

namespace zonara::test {

// $ZONARA_SOURCE_DIR when set, else the folder the program was built from.
std::filesystem::path sourceDir();

// Copies the shipped world files into root/Data as a first start finds them:
// without tstamp.dat. Files already there are replaced.
Paths copyShippedWorld(const std::filesystem::path& root);

} // namespace zonara::test

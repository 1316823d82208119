#pragma once
// One widget application for a benchmark program, on the offscreen platform
// unless the environment names another.

namespace zonara::test {

// Makes the application on first use; it lives until the program ends.
void ensureQtApplication();

} // namespace zonara::test

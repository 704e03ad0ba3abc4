// What the end-to-end programs share beyond the C support: the installation, made on first
// use, and the test plug-in's exports.
#pragma once

#include <chrono>

namespace zqe2e {

// Waits that end with a failure instead of a hang.
inline constexpr auto kHangGuard = std::chrono::minutes(3);

// An export of the installed zqtestDrive (the same module the library loads); the first call
// makes the installation.
void* pluginSymbol(const char* name);

}  // namespace zqe2e

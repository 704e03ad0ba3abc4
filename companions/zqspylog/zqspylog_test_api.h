// What ZqSpyLog exports beside the eight tracing operations, for tests: switching the mode word
// and reading back what was recorded. Resolve them by name from the loaded library.
#pragma once

#include <cstdint>

namespace zqspylog {

// Sets the mode word that the traced library reads through ZqSpyModeLocation.
using SetModeFn = void (*)(uint32_t mode);
inline constexpr const char* kSetMode = "ZqSpySetMode";

// Copies the line of the call ended `back` calls ago (0: the last one) into `buffer`, cut to
// `size` with a NUL. Returns the line's full length, or -1 when there is no such line.
using RecentLineFn = int32_t (*)(uint32_t back, char* buffer, uint32_t size);
inline constexpr const char* kRecentLine = "ZqSpyRecentLine";

// Counts since load: cookies asked for (given or not), lines ended, version queries.
using CountersFn = void (*)(uint64_t* cookieRequests, uint64_t* lines, uint64_t* versionQueries);
inline constexpr const char* kCounters = "ZqSpyCounters";

// How many lines are kept in memory for ZqSpyRecentLine.
inline constexpr uint32_t kRecentLines = 64;

}  // namespace zqspylog

// The line counts of a line buffer: a plain block that the line adapter owns, so that its C
// layout is fixed and not that of some standard library's vector.
#pragma once

#include <cstdint>

#include "zqgopher_boundary.h"

namespace zqgopher::detail {

// Replaces the counts with `count` entries; on an allocation failure (thrown) they stay.
void assignLines(zqgopher_LineCounts& lines, const uint32_t* entries, uint64_t count);
void clearLines(zqgopher_LineCounts& lines) noexcept;
void releaseLines(zqgopher_LineCounts& lines) noexcept;

}  // namespace zqgopher::detail

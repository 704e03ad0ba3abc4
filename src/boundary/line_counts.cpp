#include "boundary/line_counts.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace zqgopher::detail {

void assignLines(zqgopher_LineCounts& lines, const uint32_t* entries, uint64_t count) {
  if (count > lines.capacity) {
    if (count > SIZE_MAX / sizeof(uint32_t)) throw std::bad_array_new_length();
    auto* block = new uint32_t[static_cast<size_t>(count)];
    delete[] lines.data;
    lines.data = block;
    lines.capacity = count;
  }
  if (count != 0) std::copy(entries, entries + count, lines.data);
  lines.size = count;
}

void clearLines(zqgopher_LineCounts& lines) noexcept { lines.size = 0; }

void releaseLines(zqgopher_LineCounts& lines) noexcept {
  delete[] lines.data;
  lines = zqgopher_LineCounts{nullptr, 0, 0};
}

}  // namespace zqgopher::detail

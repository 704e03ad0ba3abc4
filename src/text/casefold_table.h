// The case-folding rows, generated at build time from Unicode's CaseFolding.txt.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zqwombat {

// One row per code point from `first` to `last`, `width` units each, padded with zeros.
struct FoldRange {
  char32_t first;
  char32_t last;
  uint32_t width;
  const char16_t* rows;
};

inline constexpr size_t kFoldRangeCount = 6;
extern const FoldRange kFoldRanges[kFoldRangeCount];

}  // namespace zqwombat

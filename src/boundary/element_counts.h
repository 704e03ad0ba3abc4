// Element arithmetic of the buffer adapters. A shape whose element count does not fit in 64
// bits can never fit a buffer, so products saturate instead of wrapping to a small number.
#pragma once

#include <cstdint>
#include <limits>

namespace zqgopher::detail {

inline constexpr uint64_t kSaturated = std::numeric_limits<uint64_t>::max();

constexpr uint64_t multiplySaturated(uint64_t a, uint64_t b) {
  return (a != 0 && b > kSaturated / a) ? kSaturated : a * b;
}

constexpr uint64_t addSaturated(uint64_t a, uint64_t b) { return b > kSaturated - a ? kSaturated : a + b; }

// The capability word: the constraint's bits, and 1 when an extension is present.
constexpr uint32_t withExtensionBit(uint32_t bits, uint64_t extension) { return bits + (extension != 0 ? 1u : 0u); }

}  // namespace zqgopher::detail

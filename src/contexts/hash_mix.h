// The 64-bit mix that the registers of tasks and contexts put their hashes through.
#pragma once

#include <cstdint>

namespace zqhash {

constexpr uint64_t mix64(uint64_t k) {
  k = ~k + (k << 21);
  k ^= k >> 24;
  k *= 265;
  k ^= k >> 14;
  k *= 21;
  k ^= k >> 28;
  k *= 0x80000001ull;
  return k;
}

}  // namespace zqhash

// The variable part of a generic attribute entry, as its value type lays it out: what the
// platform's variadic walk must read to fill the 8-byte argument slots of a ParmInfo.
#pragma once

#include <cstdint>

namespace zqplatform {

enum class SlotShape : uint8_t {
  kNone,             // nothing follows the fixed arguments
  kInt32,            // a 32-bit integer (int32, uInt32, bool32), in the slot's low half
  kInt64,            // a 64-bit integer
  kDouble,           // a float64, its bits in the slot
  kPointer,          // a pointer
  kTime,             // a 16-byte absolute time by value; the slot holds the address of a copy
  kPointerAndCount,  // a pointer, then a 32-bit count in the next slot
};

// The absolute time as the variadic walk copies it: two 64-bit words, like the caller's record.
struct TimeWords {
  uint64_t low;
  int64_t high;
};

}  // namespace zqplatform

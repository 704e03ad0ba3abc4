// What the generated generic attribute entries share: the reading of a ParmInfo's slots, the
// answer to an id that an entry does not pass on to an accessor, and the rule by which the
// device-list Timing entries fall back on the plain ones.
#pragma once

#include <cstdint>
#include <cstring>

#include "zqcai_rd_mbcs.h"

namespace zqgeneric {

// A null ParmInfo reads as slots of zeros.
const VorexParmSlot* slotsOrZeros(const VorexParmSlot* parmInfo);

// A 32-bit value lies in the low half of its slot.
inline uint32_t slotU32(const VorexParmSlot* slots, int index) { return static_cast<uint32_t>(slots[index]); }
inline int32_t slotI32(const VorexParmSlot* slots, int index) { return static_cast<int32_t>(slotU32(slots, index)); }
inline uint64_t slotU64(const VorexParmSlot* slots, int index) { return slots[index]; }
inline double slotF64(const VorexParmSlot* slots, int index) {
  double value;
  std::memcpy(&value, &slots[index], sizeof value);
  return value;
}
template <class T>
const T* slotPointer(const VorexParmSlot* slots, int index) {
  return reinterpret_cast<const T*>(static_cast<uintptr_t>(slots[index]));
}

enum class Answer {
  kNotValid,       // -200233: the class has no such id
  kCannotBeSet,    // -200231: listed as refused by Set
  kCannotBeReset,  // -200236: listed as refused by Reset
  kNullTime,       // -200604: a Set of an absolute time without a record
};

// Resolves the handle as an accessor would (a bad one's code wins), sets the answer's code at
// the module SetGetFn, `line`, with the id as the report's one item, and records a failure for
// the thread. Returns the code.
int32_t answer(TaskHandle task, int32_t id, Answer answer, uint32_t line);

// A Set of an absolute time: the record that slot 0 points to, copied, goes to `set`.
int32_t setTime(int32 (*set)(TaskHandle, VorexAbsoluteTime), TaskHandle task, int32_t id,
                const VorexParmSlot* slots, uint32_t line);

// Whether a device-list Timing entry passes an id it does not take itself to the plain Timing
// entry: when the list holds nothing but white space (null is empty), and the id is not -1.
bool plainTimingTakes(int32_t id, const char* deviceNames);

}  // namespace zqgeneric

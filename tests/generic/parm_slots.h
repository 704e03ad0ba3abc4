// A ParmInfo built by hand, slot by slot, as a caller that has no va_list builds one: the layout
// the public header documents, written here apart from the library's own reading of it.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "generic_cases.h"

namespace zqtest {

using Slots = std::array<VorexParmSlot, 2>;

template <class T>
VorexParmSlot addressSlot(const T* pointer) {
  return static_cast<VorexParmSlot>(reinterpret_cast<uintptr_t>(pointer));
}

// Get: the buffer's size for a text or an array, else nothing.
inline Slots getSlots(ValueType type) {
  switch (type) {
    case ValueType::kString:
    case ValueType::kStringList: return {kTextSize, 0};
    case ValueType::kF64Array:
    case ValueType::kI32Array: return {kArraySize, 0};
    default: return {0, 0};
  }
}

// Set: the value in slot 0 (a 32-bit one in the low half, with garbage above it that must not
// matter), and the count of an array in slot 1.
inline Slots setSlots(ValueType type, const Inputs& in) {
  constexpr VorexParmSlot kHighGarbage = 0xA5A5A5A500000000ull;
  switch (type) {
    case ValueType::kI32: return {kHighGarbage | static_cast<uint32_t>(in.i32), 0};
    case ValueType::kU32:
    case ValueType::kU32Size:
    case ValueType::kBool: return {kHighGarbage | in.u32, 0};
    case ValueType::kU64: return {in.u64, 0};
    case ValueType::kF64: {
      VorexParmSlot bits;
      std::memcpy(&bits, &in.f64, sizeof bits);
      return {bits, 0};
    }
    case ValueType::kString: return {addressSlot(in.text), 0};
    case ValueType::kStringList: return {addressSlot(in.list), 0};
    case ValueType::kF64Array: return {addressSlot(in.f64s), kHighGarbage | in.count};
    case ValueType::kI32Array: return {addressSlot(in.i32s), kHighGarbage | in.count};
    case ValueType::kTime: return {addressSlot(&in.time), 0};
  }
  return {0, 0};
}

}  // namespace zqtest

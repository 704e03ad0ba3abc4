// The ParmInfo of a variadic call on Linux x86-64. The System V va_list is no array of slots:
// integers and pointers come from the general registers' save area, float64 from the vector
// registers' and a 16-byte record from either or the stack, so each argument must be read with
// its own type. The walk reads what the id's value type puts there (its shape) and lays it out
// in 8-byte slots by the same rules as Windows x64.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <cstring>

#include "platform/variadic_shape.h"

namespace zqplatform {

class VariadicSlots {
 public:
  // `shapeOf()` gives the shape of the id's variable part; it is asked once.
  template <class ShapeOf>
  VariadicSlots(va_list args, ShapeOf&& shapeOf) {
    switch (shapeOf()) {
      case SlotShape::kNone:
        break;
      case SlotShape::kInt32:
        slots_[0] = va_arg(args, uint32_t);
        break;
      case SlotShape::kInt64:
        slots_[0] = va_arg(args, uint64_t);
        break;
      case SlotShape::kDouble: {
        const double value = va_arg(args, double);
        std::memcpy(&slots_[0], &value, sizeof value);
        break;
      }
      case SlotShape::kPointer:
        slots_[0] = reinterpret_cast<uintptr_t>(va_arg(args, const void*));
        break;
      case SlotShape::kTime:
        time_ = va_arg(args, TimeWords);
        slots_[0] = reinterpret_cast<uintptr_t>(&time_);
        break;
      case SlotShape::kPointerAndCount:
        slots_[0] = reinterpret_cast<uintptr_t>(va_arg(args, const void*));
        slots_[1] = va_arg(args, uint32_t);
        break;
    }
  }
  VariadicSlots(const VariadicSlots&) = delete;
  VariadicSlots& operator=(const VariadicSlots&) = delete;
  const uint64_t* get() const { return slots_; }

 private:
  uint64_t slots_[2] = {};
  TimeWords time_{};
};

}  // namespace zqplatform

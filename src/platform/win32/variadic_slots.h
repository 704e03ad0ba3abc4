// The ParmInfo of a variadic call on Windows x64: the convention passes every variable argument
// in an 8-byte slot (a float64 also in its slot, a 16-byte record by the address of a copy), and
// a va_list is the address of the first of them. So the va_list is the ParmInfo itself, and the
// value type of the id is never needed.
#pragma once

#include <cstdarg>
#include <cstdint>

#include "platform/variadic_shape.h"

namespace zqplatform {

class VariadicSlots {
 public:
  template <class ShapeOf>
  VariadicSlots(va_list args, ShapeOf&&) : slots_(reinterpret_cast<const uint64_t*>(args)) {}
  VariadicSlots(const VariadicSlots&) = delete;
  VariadicSlots& operator=(const VariadicSlots&) = delete;
  // Valid while the variadic function runs: the slots are the caller's argument area.
  const uint64_t* get() const { return slots_; }

 private:
  const uint64_t* slots_;
};

}  // namespace zqplatform

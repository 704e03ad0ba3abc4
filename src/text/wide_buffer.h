// Scratch room for a UTF-16 form: on the stack up to kStackWideUnits, on the heap beyond.
#pragma once

#include <cstddef>

#include "text/basic_string.h"
#include "text/nstring.h"

namespace zqwombat {

class WideBuffer {
 public:
  WideBuffer() = default;
  WideBuffer(const WideBuffer&) = delete;
  WideBuffer& operator=(const WideBuffer&) = delete;

  // Room for `units` units and a terminator; false with -52000 in the status.
  bool prepare(size_t units, zqhtl::err::StatusRef status) {
    if (units <= kStackWideUnits) {
      data_ = stack_;
      return true;
    }
    if (!heap_.reserve(units, status)) return false;
    data_ = heap_.data();
    return true;
  }
  char16_t* data() { return data_; }

 private:
  char16_t stack_[kStackWideUnits + 1];
  zqhtl::WideString heap_;
  char16_t* data_ = stack_;
};

}  // namespace zqwombat

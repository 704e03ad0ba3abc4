// Interface classes of the shape the binding serves, for the test libraries in fixtures/.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "status/status.h"

namespace zqtest {

// Only the table: names in order and one address per name.
template <const char* const* Names, size_t Count>
class NameTable {
 public:
  static constexpr size_t kOperationCount = Count;
  static constexpr const char* const* kNames = Names;

  void setSlot(size_t index, void* address) noexcept {
    if (index < Count) slots_[index] = address;
  }
  void* slot(size_t index) const { return slots_[index]; }
  // One character per name: '1' bound, '0' not.
  std::string boundMask() const {
    std::string mask;
    for (void* address : slots_) mask += address ? '1' : '0';
    return mask;
  }
  // Calls an operation of the fixtures' common shape: int32_t (status).
  int32_t call(size_t index, zqerr_Status* status) const {
    return reinterpret_cast<int32_t (*)(zqerr_Status*)>(slots_[index])(status);
  }

 private:
  std::array<void*, Count> slots_{};
};

}  // namespace zqtest

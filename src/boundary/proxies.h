// The other direction: boundary objects that this library was handed and must fill, such as a
// debug target's text or list (the object may come from a plug-in or from this library).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zqgopher_boundary.h"

namespace zqgopher {

class StringProxy {
 public:
  explicit StringProxy(zqgopher_IString* target) noexcept : target_(target) {}
  // A null target gives zqapalerr_invalidParameter; else assign(bytes, length).
  void set(std::string_view utf8, zqerr_Status* status) const;

 private:
  zqgopher_IString* target_;
};

// Each list goes through the table of its element type.
class ItemAdderProxy {
 public:
  explicit ItemAdderProxy(zqgopher_IItemAdder* target) noexcept : target_(target) {}
  // A null target gives zqapalerr_invalidParameter. A non-empty list calls reserve(count)
  // once, then add for each item, and stops at the first failed status.
  void add(const std::vector<std::string>& items, zqerr_Status* status) const;
  void add(const std::vector<int32_t>& items, zqerr_Status* status) const;
  void add(const std::vector<double>& items, zqerr_Status* status) const;

 private:
  zqgopher_IItemAdder* target_;
};

}  // namespace zqgopher

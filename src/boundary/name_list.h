// A list of UTF-8 names that keeps one short name in place: the usual channel argument of an
// accessor, one name, costs no allocation. Any other list lives in its vector.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zqgopher {

class NameList {
 public:
  // The longest name kept in place, in bytes without the terminator.
  static constexpr size_t kShortCapacity = 55;

  NameList() noexcept = default;
  NameList(const NameList&) = delete;
  NameList& operator=(const NameList&) = delete;

  // The list of `name` alone, when it fits in place; false, with the list unchanged, when not.
  bool assignShort(std::string_view name) noexcept;
  // The vector form, emptied, for a parser to fill.
  std::vector<std::string>* vector() noexcept {
    clear();
    return &names_;
  }
  void clear() noexcept {
    shortLength_ = kNoShort;
    names_.clear();
  }

  bool isShort() const noexcept { return shortLength_ != kNoShort; }
  // The name kept in place; only when isShort().
  const char* shortName() const noexcept { return short_; }
  const std::vector<std::string>& names() const noexcept { return names_; }
  size_t size() const noexcept { return isShort() ? 1 : names_.size(); }
  bool empty() const noexcept { return size() == 0; }
  std::string_view operator[](size_t index) const noexcept {
    return isShort() ? std::string_view(short_, shortLength_) : std::string_view(names_[index]);
  }

 private:
  static constexpr unsigned char kNoShort = 0xFF;
  static_assert(kShortCapacity < kNoShort);

  std::vector<std::string> names_;
  unsigned char shortLength_ = kNoShort;
  char short_[kShortCapacity + 1];
};

}  // namespace zqgopher

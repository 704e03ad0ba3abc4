// Read-only runs of elements as a plug-in sees them: zqgopher_ArrayView. Views own nothing
// but StringArrayView's pointers; what they show must outlive them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/name_list.h"
#include "status/status.h"
#include "zqgopher_boundary.h"

namespace zqgopher {

namespace detail {
void failNullArray(zqerr_Status* status);
}

template <class T>
class ArrayViewAdapter : public zqgopher_ArrayView {
 public:
  ArrayViewAdapter() noexcept : zqgopher_ArrayView{nullptr, 0} {}

  // Empty on a failed status or a count of 0, whatever the pointer. A null pointer with a
  // count gives zqapalerr_invalidParameter and the empty view.
  ArrayViewAdapter(const T* items, uint64_t itemCount, zqerr_Status* status) noexcept : ArrayViewAdapter() {
    if (!zqerr::isOpen(status) || itemCount == 0) return;
    if (!items) {
      detail::failNullArray(status);
      return;
    }
    data = items;
    count = itemCount;
  }

  explicit ArrayViewAdapter(const std::vector<T>& items) noexcept : ArrayViewAdapter() {
    if (items.empty()) return;
    data = items.data();
    count = items.size();
  }

  // A view of one value.
  explicit ArrayViewAdapter(const T& value) noexcept : zqgopher_ArrayView{&value, 1} {}
  explicit ArrayViewAdapter(T&&) = delete;

  const zqgopher_ArrayView* boundary() const noexcept { return this; }
  const T* begin() const noexcept { return static_cast<const T*>(data); }
  const T* end() const noexcept { return begin() + count; }
  uint64_t size() const noexcept { return count; }
  bool empty() const noexcept { return count == 0; }
  const T& operator[](uint64_t index) const noexcept { return begin()[index]; }
};

// A list of names as a plug-in sees it: a view of text pointers into the source list. A list
// of one name keeps its pointer in place; a longer one is followed by the vector that owns its
// pointers. The source list must outlive the view.
class StringArrayView : public ArrayViewAdapter<const char*> {
 public:
  StringArrayView() noexcept = default;
  // An empty list gives the null view; neither it nor a list of one name allocates.
  explicit StringArrayView(const std::vector<std::string>& names) { show(names); }
  explicit StringArrayView(const NameList& names) {
    if (names.isShort())
      showOne(names.shortName());
    else
      show(names.names());
  }
  StringArrayView(StringArrayView&& other) noexcept;
  StringArrayView& operator=(StringArrayView&& other) noexcept;
  StringArrayView(const StringArrayView&) = delete;
  StringArrayView& operator=(const StringArrayView&) = delete;

 private:
  void showOne(const char* name) noexcept {
    one_ = name;
    data = &one_;
    count = 1;
  }
  void show(const std::vector<std::string>& names) {
    if (names.size() == 1)
      showOne(names.front().c_str());
    else if (!names.empty())
      showAll(names);
  }
  void showAll(const std::vector<std::string>& names);
  // Takes over what `other` shows and leaves it empty.
  void take(StringArrayView& other) noexcept;

  const char* one_ = nullptr;
  std::vector<const char*> pointers_;
};

}  // namespace zqgopher

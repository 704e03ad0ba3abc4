#include "boundary/array_view.h"

#include <utility>

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqgopher {

void detail::failNullArray(zqerr_Status* status) {
  ZQ_FAIL(status, kArrayViewAdapterInvalidParameter);
}

StringArrayView::StringArrayView(const std::vector<std::string>& names) {
  if (names.empty()) return;
  pointers_.reserve(names.size());
  for (const std::string& name : names) pointers_.push_back(name.c_str());
  data = pointers_.data();
  count = pointers_.size();
}

// Moving the vector keeps its block, so the view's pointer stays valid.
StringArrayView::StringArrayView(StringArrayView&& other) noexcept
    : ArrayViewAdapter(static_cast<const ArrayViewAdapter&>(other)), pointers_(std::move(other.pointers_)) {
  other.data = nullptr;
  other.count = 0;
}

StringArrayView& StringArrayView::operator=(StringArrayView&& other) noexcept {
  if (this != &other) {
    pointers_ = std::move(other.pointers_);
    data = other.data;
    count = other.count;
    other.data = nullptr;
    other.count = 0;
  }
  return *this;
}

}  // namespace zqgopher

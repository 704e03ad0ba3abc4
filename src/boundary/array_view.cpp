#include "boundary/array_view.h"

#include <utility>

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqgopher {

void detail::failNullArray(zqerr_Status* status) {
  ZQ_FAIL(status, kArrayViewAdapterInvalidParameter);
}

void StringArrayView::showAll(const std::vector<std::string>& names) {
  pointers_.reserve(names.size());
  for (const std::string& name : names) pointers_.push_back(name.c_str());
  data = pointers_.data();
  count = pointers_.size();
}

// Moving the vector keeps its block, so the view's pointer stays valid; a pointer kept in place
// moves with the view.
void StringArrayView::take(StringArrayView& other) noexcept {
  pointers_ = std::move(other.pointers_);
  one_ = other.one_;
  data = other.data == &other.one_ ? &one_ : other.data;
  count = other.count;
  other.data = nullptr;
  other.count = 0;
  other.one_ = nullptr;
}

StringArrayView::StringArrayView(StringArrayView&& other) noexcept { take(other); }

StringArrayView& StringArrayView::operator=(StringArrayView&& other) noexcept {
  if (this != &other) take(other);
  return *this;
}

}  // namespace zqgopher

#include "boundary/name_list.h"

#include <cstring>

namespace zqgopher {

bool NameList::assignShort(std::string_view name) noexcept {
  if (name.size() > kShortCapacity) return false;
  names_.clear();
  std::memcpy(short_, name.data(), name.size());
  short_[name.size()] = '\0';
  shortLength_ = static_cast<unsigned char>(name.size());
  return true;
}

}  // namespace zqgopher

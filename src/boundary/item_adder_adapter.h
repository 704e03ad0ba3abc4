// A library-side list as a plug-in sees it: zqgopher_IItemAdder, with the table of its
// element type (int32_t, double or UTF-8 text).
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "zqgopher_boundary.h"

namespace zqgopher {

template <class T>
class ItemAdderAdapter : public zqgopher_ItemAdderAdapterFields {
  static_assert(std::is_same_v<T, int32_t> || std::is_same_v<T, double> || std::is_same_v<T, std::string>,
                "the boundary has lists of int32_t, double and text only");

 public:
  // The vector must outlive the adapter; the plug-in appends to it.
  explicit ItemAdderAdapter(std::vector<T>& items) noexcept;
  ItemAdderAdapter(const ItemAdderAdapter&) = delete;
  ItemAdderAdapter& operator=(const ItemAdderAdapter&) = delete;

  zqgopher_IItemAdder* boundary() noexcept { return &base; }
  std::vector<T>& list() const noexcept { return *static_cast<std::vector<T>*>(items); }
};

extern const zqgopher_IItemAdderI32Table kItemAdderI32Table;
extern const zqgopher_IItemAdderF64Table kItemAdderF64Table;
extern const zqgopher_IItemAdderStringTable kItemAdderStringTable;

template <>
ItemAdderAdapter<int32_t>::ItemAdderAdapter(std::vector<int32_t>& items) noexcept;
template <>
ItemAdderAdapter<double>::ItemAdderAdapter(std::vector<double>& items) noexcept;
template <>
ItemAdderAdapter<std::string>::ItemAdderAdapter(std::vector<std::string>& items) noexcept;

}  // namespace zqgopher

#include "boundary/item_adder_adapter.h"

#include <stdexcept>

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqgopher {

namespace {

template <class T>
std::vector<T>& itemsOf(zqgopher_IItemAdder* self) {
  return *static_cast<std::vector<T>*>(reinterpret_cast<zqgopher_ItemAdderAdapterFields*>(self)->items);
}

// Room for `count` more items; a count the vector can never hold is a length error.
template <class T>
void reserveMore(std::vector<T>& items, uint64_t count) {
  if (count > items.max_size() - items.size()) throw std::length_error("zqgopher::ItemAdderAdapter::reserve");
  items.reserve(items.size() + static_cast<size_t>(count));
}

template <class T>
void reserve(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status) {
  guarded(status, [&] { reserveMore(itemsOf<T>(self), count); });
}

template <class T>
void clear(zqgopher_IItemAdder* self, zqerr_Status* status) {
  guarded(status, [&] { itemsOf<T>(self).clear(); });
}

template <class T>
void addNumber(zqgopher_IItemAdder* self, T item, zqerr_Status* status) {
  guarded(status, [&] { itemsOf<T>(self).push_back(item); });
}

template <class T>
void addNumbers(zqgopher_IItemAdder* self, const T* items, uint64_t count, zqerr_Status* status) {
  guarded(status, [&] {
    if (count == 0) return;
    if (!items) {
      ZQ_FAIL(status, kItemAdderAdapterInvalidParameter);
      return;
    }
    std::vector<T>& list = itemsOf<T>(self);
    reserveMore(list, count);
    list.insert(list.end(), items, items + count);
  });
}

void addText(zqgopher_IItemAdder* self, const char* item, zqerr_Status* status) {
  guarded(status, [&] {
    if (!item) {
      ZQ_FAIL(status, kItemAdderAdapterInvalidParameter56);
      return;
    }
    itemsOf<std::string>(self).emplace_back(item);
  });
}

void addTexts(zqgopher_IItemAdder* self, const char* const* items, uint64_t count, zqerr_Status* status) {
  guarded(status, [&] {
    if (count == 0) return;
    bool anyNull = !items;
    for (uint64_t i = 0; !anyNull && i < count; ++i) anyNull = items[i] == nullptr;
    if (anyNull) {
      ZQ_FAIL(status, kItemAdderAdapterInvalidParameter69);
      return;
    }
    std::vector<std::string>& list = itemsOf<std::string>(self);
    const size_t before = list.size();
    try {
      reserveMore(list, count);
      for (uint64_t i = 0; i < count; ++i) list.emplace_back(items[i]);
    } catch (...) {
      list.resize(before);  // all or nothing, as for a null item
      throw;
    }
  });
}

}  // namespace

const zqgopher_IItemAdderI32Table kItemAdderI32Table = {&reserve<int32_t>, &clear<int32_t>, &addNumber<int32_t>,
                                                        &addNumbers<int32_t>};
const zqgopher_IItemAdderF64Table kItemAdderF64Table = {&reserve<double>, &clear<double>, &addNumber<double>,
                                                        &addNumbers<double>};
const zqgopher_IItemAdderStringTable kItemAdderStringTable = {&reserve<std::string>, &clear<std::string>, &addText,
                                                              &addTexts};

template <>
ItemAdderAdapter<int32_t>::ItemAdderAdapter(std::vector<int32_t>& list) noexcept
    : zqgopher_ItemAdderAdapterFields{} {
  base.table.i32 = &kItemAdderI32Table;
  items = &list;
}

template <>
ItemAdderAdapter<double>::ItemAdderAdapter(std::vector<double>& list) noexcept : zqgopher_ItemAdderAdapterFields{} {
  base.table.f64 = &kItemAdderF64Table;
  items = &list;
}

template <>
ItemAdderAdapter<std::string>::ItemAdderAdapter(std::vector<std::string>& list) noexcept
    : zqgopher_ItemAdderAdapterFields{} {
  base.table.strings = &kItemAdderStringTable;
  items = &list;
}

}  // namespace zqgopher

#include "boundary_doubles.h"

#include <cstring>
#include <type_traits>

namespace zqtest {

namespace {

TextOut* textOf(const zqgopher_IString* self) {
  return reinterpret_cast<TextOut*>(const_cast<zqgopher_IString*>(self));
}

const zqgopher_IStringTable kTextTable = {
    [](const zqgopher_IString* self, zqerr_Status*) -> uint64_t { return textOf(self)->text.size(); },
    [](const zqgopher_IString* self, char* buffer, uint64_t size, zqerr_Status*) {
      std::memcpy(buffer, textOf(self)->text.data(), std::min<uint64_t>(size, textOf(self)->text.size()));
    },
    [](zqgopher_IString* self, zqerr_Status*) { textOf(self)->text.clear(); },
    [](zqgopher_IString* self, const char* text, uint64_t length, zqerr_Status* status) {
      if (status->code >= 0) textOf(self)->text.assign(text, length);
    },
    [](const zqgopher_IString* self, zqerr_Status*) -> const char* { return textOf(self)->text.c_str(); },
    [](zqgopher_IString* self, zqerr_Status*) -> char* { return textOf(self)->text.data(); },
    [](zqgopher_IString* self, uint64_t length, zqerr_Status*) { textOf(self)->text.resize(length); },
};

template <class T>
ListOut<T>* listOf(zqgopher_IItemAdder* self) {
  return reinterpret_cast<ListOut<T>*>(self);
}

// The item as the table hands it over: text and identifiers by pointer, numbers by value.
template <class T>
using ItemIn = std::conditional_t<std::is_same_v<T, std::string>, const char*,
                                  std::conditional_t<std::is_same_v<T, zqvorexStorage_ObjectID>, const T*, T>>;
template <class T>
using RangeIn = std::conditional_t<std::is_same_v<T, std::string>, const char* const*, const T*>;

template <class T>
T fromItem(ItemIn<T> item) {
  if constexpr (std::is_pointer_v<ItemIn<T>> && !std::is_same_v<T, std::string>) {
    return *item;
  } else {
    return T(item);
  }
}

template <class T>
struct Table {
  void (*reserve)(zqgopher_IItemAdder*, uint64_t, zqerr_Status*);
  void (*clear)(zqgopher_IItemAdder*, zqerr_Status*);
  void (*add)(zqgopher_IItemAdder*, ItemIn<T>, zqerr_Status*);
  void (*addRange)(zqgopher_IItemAdder*, RangeIn<T>, uint64_t, zqerr_Status*);
};

template <class T>
const Table<T> kListTable = {
    [](zqgopher_IItemAdder* self, uint64_t count, zqerr_Status*) { listOf<T>(self)->items.reserve(count); },
    [](zqgopher_IItemAdder* self, zqerr_Status*) { listOf<T>(self)->items.clear(); },
    [](zqgopher_IItemAdder* self, ItemIn<T> item, zqerr_Status* status) {
      if (status->code >= 0) listOf<T>(self)->items.push_back(fromItem<T>(item));
    },
    [](zqgopher_IItemAdder* self, RangeIn<T> items, uint64_t count, zqerr_Status* status) {
      if (status->code < 0) return;
      for (uint64_t i = 0; i < count; ++i) listOf<T>(self)->items.push_back(T(items[i]));
    },
};

}  // namespace

TextOut::TextOut() : base{&kTextTable} {}

template <class T>
ListOut<T>::ListOut() {
  base.table.i32 = reinterpret_cast<const zqgopher_IItemAdderI32Table*>(&kListTable<T>);
}

template struct ListOut<std::string>;
template struct ListOut<zqvorexStorage_ObjectID>;
template struct ListOut<uint32_t>;
template struct ListOut<int32_t>;

NamesIn::NamesIn(const std::vector<std::string>& names) {
  for (const std::string& name : names) pointers_.push_back(name.c_str());
  view_.data = pointers_.empty() ? nullptr : pointers_.data();
  view_.count = pointers_.size();
}

bool operator==(const zqvorexStorage_ObjectID& a, const zqvorexStorage_ObjectID& b) {
  return std::memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0;
}

}  // namespace zqtest

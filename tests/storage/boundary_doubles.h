// The driver's own boundary objects, as it hands them to the storage library: a string and
// lists that the library fills, with what it wrote in reach, and views of names that it reads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "storage/object_id_list.h"

namespace zqtest {

struct TextOut {
  std::string text;
  zqgopher::StringAdapter adapter{text};
  zqgopher_IString* get() { return adapter.boundary(); }
};

// `items` collects what the library adds.
template <class T, class Adapter>
struct ListOut {
  std::vector<T> items;
  Adapter adapter{items};
  zqgopher_IItemAdder* get() { return adapter.boundary(); }
};

using NamesOut = ListOut<std::string, zqgopher::ItemAdderAdapter<std::string>>;
using IdsOut = ListOut<zqvorexStorage_ObjectID, zqvorexStorageCpp::ObjectIdList>;
// Product ids come through the table of 32-bit items.
using NumbersOut = ListOut<int32_t, zqgopher::ItemAdderAdapter<int32_t>>;

// A view of text pointers into a list of names, which must outlive it.
using NamesIn = zqgopher::StringArrayView;

}  // namespace zqtest

// Stand-ins for the driver's boundary objects: a string and lists that the library fills,
// and views that it reads. Only what the storage library calls is implemented for real.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zqvorex_storage.h"

namespace zqtest {

struct TextOut {
  TextOut();
  zqgopher_IString base;
  std::string text;
  zqgopher_IString* get() { return &base; }
};

// One list per element type; `items` collects what the library adds.
template <class T>
struct ListOut {
  ListOut();
  zqgopher_IItemAdder base;
  std::vector<T> items;
  zqgopher_IItemAdder* get() { return &base; }
};

using NamesOut = ListOut<std::string>;
using IdsOut = ListOut<zqvorexStorage_ObjectID>;
using U32sOut = ListOut<uint32_t>;
using I32sOut = ListOut<int32_t>;

// A view of text pointers into `names`, which must outlive it.
class NamesIn {
 public:
  explicit NamesIn(const std::vector<std::string>& names);
  const zqgopher_ArrayView* get() const { return &view_; }

 private:
  std::vector<const char*> pointers_;
  zqgopher_ArrayView view_{};
};

bool operator==(const zqvorexStorage_ObjectID& a, const zqvorexStorage_ObjectID& b);

}  // namespace zqtest

// A list of object identifiers that the storage library fills: zqgopher_IItemAdder with the
// storage library's identifier table.
#pragma once

#include <vector>

#include "zqvorex_storage.h"

namespace zqvorexStorageCpp {

using ObjectId = zqvorexStorage_ObjectID;

class ObjectIdList {
 public:
  // The vector must outlive the adapter; the library appends to it.
  explicit ObjectIdList(std::vector<ObjectId>& ids) noexcept;
  ObjectIdList(const ObjectIdList&) = delete;
  ObjectIdList& operator=(const ObjectIdList&) = delete;

  zqgopher_IItemAdder* boundary() noexcept { return &fields_.base; }

 private:
  zqgopher_ItemAdderAdapterFields fields_{};
};

}  // namespace zqvorexStorageCpp

#include "storage/object_id_list.h"

#include <stdexcept>

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqvorexStorageCpp {

namespace {

std::vector<ObjectId>& idsOf(zqgopher_IItemAdder* self) {
  return *static_cast<std::vector<ObjectId>*>(
      reinterpret_cast<zqgopher_ItemAdderAdapterFields*>(self)->items);
}

void reserveMore(std::vector<ObjectId>& ids, uint64_t count) {
  if (count > ids.max_size() - ids.size())
    throw std::length_error("zqvorexStorageCpp::ObjectIdList::reserve");
  ids.reserve(ids.size() + static_cast<size_t>(count));
}

void reserve(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status) {
  zqgopher::guarded(status, [&] { reserveMore(idsOf(self), count); });
}

void clear(zqgopher_IItemAdder* self, zqerr_Status* status) {
  zqgopher::guarded(status, [&] { idsOf(self).clear(); });
}

void add(zqgopher_IItemAdder* self, const ObjectId* id, zqerr_Status* status) {
  zqgopher::guarded(status, [&] {
    if (!id) {
      ZQ_FAIL(status, kObjectIdListInvalidParameter);
      return;
    }
    idsOf(self).push_back(*id);
  });
}

void addRange(zqgopher_IItemAdder* self, const ObjectId* ids, uint64_t count, zqerr_Status* status) {
  zqgopher::guarded(status, [&] {
    if (count == 0) return;
    if (!ids) {
      ZQ_FAIL(status, kObjectIdListInvalidParameter40);
      return;
    }
    std::vector<ObjectId>& list = idsOf(self);
    reserveMore(list, count);
    list.insert(list.end(), ids, ids + count);
  });
}

const zqvorexStorage_IItemAdderObjectIDTable kTable = {&reserve, &clear, &add, &addRange};

}  // namespace

ObjectIdList::ObjectIdList(std::vector<ObjectId>& ids) noexcept {
  // The adder's first word leads to the table of the element type the operation names.
  fields_.base.table.i32 = reinterpret_cast<const zqgopher_IItemAdderI32Table*>(&kTable);
  fields_.items = &ids;
}

}  // namespace zqvorexStorageCpp

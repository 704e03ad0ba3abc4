#include "boundary_io.h"

#include <cstring>

namespace zqstorage {

namespace {

void check(zqerr_Status* status) {
  if (status->code < 0) throw AlreadyReported{};
}

template <class T>
T* require(T* object, const char* what) {
  if (object == nullptr) fail(kInvalidParameter, ZQS_HERE, std::string("the ") + what + " to fill is null");
  return object;
}

template <class Table, class Item>
void putNumbers(zqgopher_IItemAdder* out, const Table* table, const std::vector<Item>& items, zqerr_Status* status) {
  if (items.empty()) return;
  table->reserve(out, items.size(), status);
  check(status);
  table->addRange(out, items.data(), items.size(), status);
  check(status);
}

const void* viewData(const zqgopher_ArrayView* view) {
  if (view == nullptr || view->count == 0) return nullptr;
  if (view->data == nullptr) fail(kInvalidParameter, ZQS_HERE, "a list has a count but no data");
  return view->data;
}

template <class T>
std::vector<int64_t> integersOf(const zqgopher_ArrayView* view) {
  const auto* data = static_cast<const T*>(viewData(view));
  std::vector<int64_t> out;
  if (data) {
    for (uint64_t i = 0; i < view->count; ++i) out.push_back(static_cast<int64_t>(data[i]));
  }
  return out;
}

}  // namespace

std::string textIn(const char* text) { return text ? std::string(text) : std::string(); }

std::string bytesIn(const void* data, uint64_t size) {
  if (size == 0) return {};
  if (data == nullptr) fail(kInvalidParameter, ZQS_HERE, "a data block has a size but no data");
  return std::string(static_cast<const char*>(data), size);
}

ObjectId idIn(const zqvorexStorage_ObjectID* id) {
  if (id == nullptr) fail(kInvalidParameter, ZQS_HERE, "the object identifier is null");
  ObjectId out;
  std::memcpy(out.data(), id->bytes, out.size());
  return out;
}

void idOut(const ObjectId& id, zqvorexStorage_ObjectID* out) {
  require(out, "object identifier");
  std::memcpy(out->bytes, id.data(), id.size());
}

void putText(zqgopher_IString* out, std::string_view text, zqerr_Status* status) {
  require(out, "text");
  out->table->assign(out, text.data(), text.size(), status);
  check(status);
}

void putStrings(zqgopher_IItemAdder* out, const std::vector<std::string>& items, zqerr_Status* status) {
  require(out, "list");
  if (items.empty()) return;
  out->table.strings->reserve(out, items.size(), status);
  check(status);
  for (const std::string& item : items) {
    out->table.strings->add(out, item.c_str(), status);
    check(status);
  }
}

void putI32s(zqgopher_IItemAdder* out, const std::vector<int32_t>& items, zqerr_Status* status) {
  putNumbers(require(out, "list"), out->table.i32, items, status);
}

void putF64s(zqgopher_IItemAdder* out, const std::vector<double>& items, zqerr_Status* status) {
  putNumbers(require(out, "list"), out->table.f64, items, status);
}

void putU32s(zqgopher_IItemAdder* out, const std::vector<uint32_t>& items, zqerr_Status* status) {
  putNumbers(require(out, "list"), zqvorexStorage_adderTable(zqvorexStorage_IItemAdderU32Table, out), items, status);
}

void putU64s(zqgopher_IItemAdder* out, const std::vector<uint64_t>& items, zqerr_Status* status) {
  putNumbers(require(out, "list"), zqvorexStorage_adderTable(zqvorexStorage_IItemAdderU64Table, out), items, status);
}

void putI64s(zqgopher_IItemAdder* out, const std::vector<int64_t>& items, zqerr_Status* status) {
  putNumbers(require(out, "list"), zqvorexStorage_adderTable(zqvorexStorage_IItemAdderI64Table, out), items, status);
}

void putIds(zqgopher_IItemAdder* out, const std::vector<ObjectId>& ids, zqerr_Status* status) {
  std::vector<zqvorexStorage_ObjectID> items(ids.size());
  for (size_t i = 0; i < ids.size(); ++i) std::memcpy(items[i].bytes, ids[i].data(), 16);
  putNumbers(require(out, "list"), zqvorexStorage_adderTable(zqvorexStorage_IItemAdderObjectIDTable, out), items, status);
}

std::vector<std::string> stringsIn(const zqgopher_ArrayView* view) {
  const auto* data = static_cast<const char* const*>(viewData(view));
  std::vector<std::string> out;
  if (data == nullptr) return out;
  for (uint64_t i = 0; i < view->count; ++i) {
    if (data[i] == nullptr) fail(kInvalidParameter, ZQS_HERE, "a list of names holds a null text");
    out.emplace_back(data[i]);
  }
  return out;
}

std::vector<int64_t> i32sIn(const zqgopher_ArrayView* view) { return integersOf<int32_t>(view); }
std::vector<int64_t> u32sIn(const zqgopher_ArrayView* view) { return integersOf<uint32_t>(view); }
std::vector<int64_t> i64sIn(const zqgopher_ArrayView* view) { return integersOf<int64_t>(view); }
std::vector<int64_t> u64sIn(const zqgopher_ArrayView* view) { return integersOf<uint64_t>(view); }

std::vector<double> f64sIn(const zqgopher_ArrayView* view) {
  const auto* data = static_cast<const double*>(viewData(view));
  return data ? std::vector<double>(data, data + view->count) : std::vector<double>();
}

}  // namespace zqstorage

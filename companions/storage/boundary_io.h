// The boundary objects of the C interface, seen from this library: text and lists go out
// through the caller's zqgopher_IString and zqgopher_IItemAdder, lists come in as
// zqgopher_ArrayView. A boundary object that fails sets the caller's status itself; the
// writers then throw AlreadyReported, which the exported function's guard lets pass quietly.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "objects.h"
#include "zqvorex_storage.h"

namespace zqstorage {

struct AlreadyReported {};

std::string textIn(const char* text);
std::string bytesIn(const void* data, uint64_t size);
ObjectId idIn(const zqvorexStorage_ObjectID* id);
void idOut(const ObjectId& id, zqvorexStorage_ObjectID* out);

void putText(zqgopher_IString* out, std::string_view text, zqerr_Status* status);
void putStrings(zqgopher_IItemAdder* out, const std::vector<std::string>& items, zqerr_Status* status);
void putI32s(zqgopher_IItemAdder* out, const std::vector<int32_t>& items, zqerr_Status* status);
void putF64s(zqgopher_IItemAdder* out, const std::vector<double>& items, zqerr_Status* status);
void putU32s(zqgopher_IItemAdder* out, const std::vector<uint32_t>& items, zqerr_Status* status);
void putU64s(zqgopher_IItemAdder* out, const std::vector<uint64_t>& items, zqerr_Status* status);
void putI64s(zqgopher_IItemAdder* out, const std::vector<int64_t>& items, zqerr_Status* status);
void putIds(zqgopher_IItemAdder* out, const std::vector<ObjectId>& ids, zqerr_Status* status);

// A null view is an empty list; a null pointer with a non-zero count, or a null text among
// the items, is -52005.
std::vector<std::string> stringsIn(const zqgopher_ArrayView* view);
std::vector<int64_t> i32sIn(const zqgopher_ArrayView* view);
std::vector<int64_t> u32sIn(const zqgopher_ArrayView* view);
std::vector<int64_t> i64sIn(const zqgopher_ArrayView* view);
std::vector<int64_t> u64sIn(const zqgopher_ArrayView* view);
std::vector<double> f64sIn(const zqgopher_ArrayView* view);

}  // namespace zqstorage

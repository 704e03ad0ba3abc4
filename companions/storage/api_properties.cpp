// The exported property readers and writers of the storage class.
#include "api_export.h"

#include <algorithm>

#include "boundary_io.h"
#include "guard.h"
#include "handles.h"
#include "properties.h"

using namespace zqstorage;

namespace {

using Id = const zqvorexStorage_ObjectID*;

// Reads a property and converts it with convert(value, description) under the lock.
template <class Convert>
auto readProperty(uint64_t lock, Id object, uint32_t property, Convert&& convert) {
  return readWith(lock, [&](Database& db) {
    const ObjectId id = idIn(object);
    return convert(requireProperty(db, id, property), describeProperty(db, id, property));
  });
}

void writeProperty(uint64_t lock, Id object, uint32_t property, const Value& value) {
  writeWith(lock, [&](Database& db) { setProperty(db, idIn(object), property, value); });
}

Value vectorProperty(uint64_t lock, Id object, uint32_t property, ValueType type) {
  return readProperty(lock, object, property, [&](const Value& v, const std::string& what) { return expectType(v, type, what); });
}

template <class T>
std::vector<T> integersAs(const Value& value) {
  return std::vector<T>(value.integers.begin(), value.integers.end());
}

}  // namespace

// ---- readers ----

ZQS_EXPORT bool zqvorexStorage_getObjectBoolProperty(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, false, [&] { return readProperty(lock, object, property, asBool); });
}

ZQS_EXPORT uint64_t zqvorexStorage_getObjectU64Property(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, uint64_t{0}, [&] { return readProperty(lock, object, property, asU64); });
}

ZQS_EXPORT int64_t zqvorexStorage_getObjectI64Property(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, int64_t{0}, [&] { return readProperty(lock, object, property, asI64); });
}

ZQS_EXPORT double zqvorexStorage_getObjectF64Property(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, 0.0, [&] { return readProperty(lock, object, property, asF64); });
}

ZQS_EXPORT uint32_t zqvorexStorage_getObjectU32Property(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, uint32_t{0}, [&] { return readProperty(lock, object, property, asU32); });
}

ZQS_EXPORT int32_t zqvorexStorage_getObjectI32Property(uint64_t lock, Id object, uint32_t property, zqerr_Status* status) {
  return guarded(status, int32_t{0}, [&] { return readProperty(lock, object, property, asI32); });
}

ZQS_EXPORT void zqvorexStorage_getObjectStringProperty(uint64_t lock, Id object, uint32_t property, zqgopher_IString* value,
                                                       zqerr_Status* status) {
  guardedVoid(status, [&] { putText(value, vectorProperty(lock, object, property, ValueType::kString).bytes, status); });
}

ZQS_EXPORT void zqvorexStorage_getObjectU64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putU64s(values, integersAs<uint64_t>(vectorProperty(lock, object, property, ValueType::kU64Vtr)), status);
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectI64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] { putI64s(values, vectorProperty(lock, object, property, ValueType::kI64Vtr).integers, status); });
}

ZQS_EXPORT void zqvorexStorage_getObjectF64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] { putF64s(values, vectorProperty(lock, object, property, ValueType::kF64Vtr).reals, status); });
}

ZQS_EXPORT void zqvorexStorage_getObjectU32VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putU32s(values, integersAs<uint32_t>(vectorProperty(lock, object, property, ValueType::kU32Vtr)), status);
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectI32VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putI32s(values, integersAs<int32_t>(vectorProperty(lock, object, property, ValueType::kI32Vtr)), status);
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectStringVtrProperty(uint64_t lock, Id object, uint32_t property,
                                                          zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] { putStrings(values, vectorProperty(lock, object, property, ValueType::kStringVtr).strings, status); });
}

ZQS_EXPORT void zqvorexStorage_getObjectGUIDProperty(uint64_t lock, Id object, uint32_t property,
                                                     zqvorexStorage_ObjectID* value, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const std::string bytes = vectorProperty(lock, object, property, ValueType::kGuid).bytes;
    ObjectId guid{};
    std::copy_n(bytes.begin(), std::min(bytes.size(), guid.size()), guid.begin());
    idOut(guid, value);
  });
}

// ---- writers ----

ZQS_EXPORT void zqvorexStorage_setObjectU64Property(uint64_t lock, Id object, uint32_t property, uint64_t value,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofInteger(ValueType::kU64, static_cast<int64_t>(value))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectI64Property(uint64_t lock, Id object, uint32_t property, int64_t value,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofInteger(ValueType::kI64, value)); });
}

ZQS_EXPORT void zqvorexStorage_setObjectF64Property(uint64_t lock, Id object, uint32_t property, double value,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofReal(value)); });
}

ZQS_EXPORT void zqvorexStorage_setObjectU32Property(uint64_t lock, Id object, uint32_t property, uint32_t value,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofInteger(ValueType::kU32, value)); });
}

ZQS_EXPORT void zqvorexStorage_setObjectI32Property(uint64_t lock, Id object, uint32_t property, int32_t value,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofInteger(ValueType::kI32, value)); });
}

ZQS_EXPORT void zqvorexStorage_setObjectStringProperty(uint64_t lock, Id object, uint32_t property, const char* value,
                                                       zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofBytes(ValueType::kString, textIn(value))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectU64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofIntegers(ValueType::kU64Vtr, u64sIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectI64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofIntegers(ValueType::kI64Vtr, i64sIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectF64VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofReals(f64sIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectU32VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofIntegers(ValueType::kU32Vtr, u32sIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectI32VtrProperty(uint64_t lock, Id object, uint32_t property,
                                                       const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofIntegers(ValueType::kI32Vtr, i32sIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectStringVtrProperty(uint64_t lock, Id object, uint32_t property,
                                                          const zqgopher_ArrayView* values, zqerr_Status* status) {
  guardedVoid(status, [&] { writeProperty(lock, object, property, Value::ofStrings(stringsIn(values))); });
}

ZQS_EXPORT void zqvorexStorage_setObjectGUIDProperty(uint64_t lock, Id object, uint32_t property,
                                                     const zqvorexStorage_ObjectID* value, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const ObjectId guid = idIn(value);
    writeProperty(lock, object, property, Value::ofBytes(ValueType::kGuid, std::string(guid.begin(), guid.end())));
  });
}

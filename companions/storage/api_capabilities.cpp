// The exported readers of device-class capability data. Each opens the store its url names
// for the one read.
#include "api_export.h"

#include "boundary_io.h"
#include "device_classes.h"
#include "guard.h"
#include "session.h"

using namespace zqstorage;

namespace {

template <class F>
auto readStore(const char* url, F&& body) {
  const auto session = Session::open(textIn(url));
  std::lock_guard<std::mutex> guard(session->mutex());
  session->beginRead();
  return body(session->db());
}

Value attribute(const char* url, uint32_t classId, uint32_t attribute) {
  return readStore(url, [&](Database& db) { return requireClassAttribute(db, classId, attribute); });
}

std::string describe(uint32_t classId, uint32_t attribute) {
  return "attribute " + std::to_string(attribute) + " of device class " + std::to_string(classId);
}

}  // namespace

ZQS_EXPORT uint32_t zqvorexStorage_getSDCClassAttributeU32(const char* url, uint32_t classId, uint32_t attr,
                                                           zqerr_Status* status) {
  return guarded(status, uint32_t{0}, [&] { return asU32(attribute(url, classId, attr), describe(classId, attr)); });
}

ZQS_EXPORT int32_t zqvorexStorage_getSDCClassAttributeI32(const char* url, uint32_t classId, uint32_t attr,
                                                          zqerr_Status* status) {
  return guarded(status, int32_t{0}, [&] { return asI32(attribute(url, classId, attr), describe(classId, attr)); });
}

ZQS_EXPORT bool zqvorexStorage_getSDCClassAttributeBool(const char* url, uint32_t classId, uint32_t attr,
                                                        zqerr_Status* status) {
  return guarded(status, false, [&] { return asBool(attribute(url, classId, attr), describe(classId, attr)); });
}

ZQS_EXPORT void zqvorexStorage_getSDCClassAttribute1DBool(const char* url, uint32_t classId, uint32_t attr,
                                                          zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const Value value = expectType(attribute(url, classId, attr), ValueType::kBoolVtr, describe(classId, attr));
    std::vector<int32_t> flags;
    for (int64_t v : value.integers) flags.push_back(v != 0 ? 1 : 0);
    putI32s(values, flags, status);
  });
}

ZQS_EXPORT void zqvorexStorage_getSDCClassAttributeString(const char* url, uint32_t classId, uint32_t attr,
                                                          zqgopher_IString* value, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putText(value, expectType(attribute(url, classId, attr), ValueType::kString, describe(classId, attr)).bytes, status);
  });
}

ZQS_EXPORT void zqvorexStorage_getSDCClassAttribute1DString(const char* url, uint32_t classId, uint32_t attr,
                                                            zqgopher_IItemAdder* values, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putStrings(values, expectType(attribute(url, classId, attr), ValueType::kStringVtr, describe(classId, attr)).strings,
               status);
  });
}

ZQS_EXPORT bool zqvorexStorage_getSDCClassIsType(const char* url, uint32_t classId, uint32_t typeClassId,
                                                 zqerr_Status* status) {
  return guarded(status, false, [&] { return readStore(url, [&](Database& db) { return classIsType(db, classId, typeClassId); }); });
}

ZQS_EXPORT uint32_t zqvorexStorage_getClassIDFromProductNumber(const char* url, uint32_t productNumber,
                                                               zqerr_Status* status) {
  return guarded(status, uint32_t{0}, [&] { return readStore(url, [&](Database& db) { return classForProduct(db, productNumber); }); });
}

ZQS_EXPORT uint32_t zqvorexStorage_getStorageClassFromClass(const char* url, uint32_t classId, zqerr_Status* status) {
  return guarded(status, uint32_t{0}, [&] {
    return readStore(url, [&](Database& db) {
      if (!findClass(db, classId)) fail(kObjectNotFound, ZQS_HERE, "no device class has the id " + std::to_string(classId));
      return static_cast<uint32_t>(ZQVOREX_STORAGE_CLASS_DEVICE);
    });
  });
}

// The exported operations of the storage class: sessions, locks, objects and queries.
// Property readers and writers are in api_properties.cpp.
#include "api_export.h"

#include "boundary_io.h"
#include "guard.h"
#include "handles.h"
#include "properties.h"
#include "stored_definitions.h"

using namespace zqstorage;

namespace {

constexpr uint64_t kNone = 0;

}  // namespace

// ---- sessions and urls ----

ZQS_EXPORT void zqvorexStorage_constructInMemoryStorageUrl(zqgopher_IString* url, zqerr_Status* status) {
  guardedVoid(status, [&] { putText(url, Session::newMemoryStore(), status); });
}

ZQS_EXPORT bool zqvorexStorage_getSecondaryUrl(const char* url, zqgopher_IString* secondaryUrl, zqerr_Status* status) {
  (void)url;  // no store here has a secondary url
  return guarded(status, false, [&] {
    if (secondaryUrl) putText(secondaryUrl, "", status);
    return false;
  });
}

ZQS_EXPORT uint64_t zqvorexStorage_getSession(const char* url, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return addSession(Session::open(textIn(url))); });
}

ZQS_EXPORT uint64_t zqvorexStorage_getSessionWithSecondaryUrl(const char* url, const char* secondaryUrl,
                                                               zqerr_Status* status) {
  (void)secondaryUrl;  // a fallback host, which the stores here lack
  return guarded(status, kNone, [&] { return addSession(Session::open(textIn(url))); });
}

ZQS_EXPORT uint64_t zqvorexStorage_getSessionFromConfigString(const char* configString, uint32_t format,
                                                               zqerr_Status* status) {
  (void)format;  // INI text is the one form there is
  return guarded(status, kNone, [&] { return addSession(Session::fromConfigText(textIn(configString))); });
}

ZQS_EXPORT void zqvorexStorage_releaseSession(uint64_t session, zqerr_Status* status) {
  guardedVoid(status, [&] { releaseSession(session); });
}

// ---- locks and changes ----

ZQS_EXPORT uint64_t zqvorexStorage_beginReadOperation(uint64_t session, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return beginLock(session, false); });
}

ZQS_EXPORT void zqvorexStorage_endReadOperation(uint64_t lock, zqerr_Status* status) {
  guardedVoid(status, [&] { endLock(lock, false); });
}

ZQS_EXPORT uint64_t zqvorexStorage_beginWriteOperation(uint64_t session, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return beginLock(session, true); });
}

ZQS_EXPORT void zqvorexStorage_endWriteOperation(uint64_t lock, zqerr_Status* status) {
  guardedVoid(status, [&] { endLock(lock, true); });
}

ZQS_EXPORT uint64_t zqvorexStorage_getLastChangeNumber(uint64_t session, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return readWith(session, [](Database& db) { return changeNumber(db); }); });
}

ZQS_EXPORT void zqvorexStorage_saveStorageChanges(uint64_t lock, zqerr_Status* status) {
  guardedVoid(status, [&] { saveLock(lock); });
}

ZQS_EXPORT void zqvorexStorage_revertStorageChanges(uint64_t lock, zqerr_Status* status) {
  guardedVoid(status, [&] { revertLock(lock); });
}

// ---- objects ----

ZQS_EXPORT void zqvorexStorage_createObject(uint64_t lock, uint32_t storageClass, uint32_t classId, const char* name,
                                            const zqvorexStorage_ObjectID* parent, zqvorexStorage_ObjectID* object,
                                            zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (object == nullptr) fail(kInvalidParameter, ZQS_HERE, "the object identifier to fill is null");
    const std::optional<ObjectId> parentId = parent ? std::optional<ObjectId>(idIn(parent)) : std::nullopt;
    const ObjectId id = writeWith(lock, [&](Database& db) {
      return createObject(db, storageClass, classId, textIn(name), parentId ? &*parentId : nullptr);
    });
    idOut(id, object);
  });
}

ZQS_EXPORT void zqvorexStorage_deleteObject(uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status) {
  guardedVoid(status, [&] { writeWith(lock, [&](Database& db) { deleteObject(db, idIn(object)); }); });
}

ZQS_EXPORT bool zqvorexStorage_getObjectParent(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                               zqvorexStorage_ObjectID* parent, zqerr_Status* status) {
  return guarded(status, false, [&] {
    const ObjectRow row = readWith(lock, [&](Database& db) { return requireObject(db, idIn(object)); });
    idOut(row.parent.value_or(ObjectId{}), parent);
    return row.parent.has_value();
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectChildren(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                                 zqgopher_IItemAdder* children, zqerr_Status* status) {
  guardedVoid(status, [&] { putIds(children, readWith(lock, [&](Database& db) { return childrenOf(db, idIn(object)); }), status); });
}

ZQS_EXPORT void zqvorexStorage_getUniqueName(uint64_t lock, uint32_t storageClass, const char* baseName,
                                             zqgopher_IString* name, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putText(name, readWith(lock, [&](Database& db) { return uniqueName(db, storageClass, textIn(baseName)); }), status);
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectName(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                             zqgopher_IString* name, zqerr_Status* status) {
  guardedVoid(status, [&] { putText(name, readWith(lock, [&](Database& db) { return requireObject(db, idIn(object)).name; }), status); });
}

ZQS_EXPORT void zqvorexStorage_setObjectName(uint64_t lock, const zqvorexStorage_ObjectID* object, const char* name,
                                             zqerr_Status* status) {
  guardedVoid(status, [&] { writeWith(lock, [&](Database& db) { renameObject(db, idIn(object), textIn(name)); }); });
}

ZQS_EXPORT void zqvorexStorage_getObjectIDForName(uint64_t lock, const char* name, zqvorexStorage_ObjectID* object,
                                                  zqerr_Status* status) {
  guardedVoid(status, [&] { idOut(readWith(lock, [&](Database& db) { return requireByNameInAnyClass(db, textIn(name)); }), object); });
}

ZQS_EXPORT void zqvorexStorage_getObjectIDForNameInNamespace(uint64_t lock, uint32_t namespaceClass, const char* name,
                                                             zqvorexStorage_ObjectID* object, zqerr_Status* status) {
  guardedVoid(status, [&] {
    idOut(readWith(lock, [&](Database& db) { return requireByName(db, namespaceClass, textIn(name)); }), object);
  });
}

ZQS_EXPORT void zqvorexStorage_getSupportedStorageClasses(uint64_t lock, zqgopher_IItemAdder* classes, zqerr_Status* status) {
  guardedVoid(status, [&] {
    resolve(lock);
    putU32s(classes, {kClassChannel, kClassTask, kClassDevice}, status);
  });
}

ZQS_EXPORT void zqvorexStorage_getObjectProperties(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                                   zqgopher_IItemAdder* properties, zqerr_Status* status) {
  guardedVoid(status, [&] { putU32s(properties, readWith(lock, [&](Database& db) { return propertyIds(db, idIn(object)); }), status); });
}

// ---- object queries ----

ZQS_EXPORT void zqvorexStorage_getClassIDForObject(uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t* classId,
                                                   zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (classId == nullptr) fail(kInvalidParameter, ZQS_HERE, "the class id to fill is null");
    *classId = readWith(lock, [&](Database& db) { return requireObject(db, idIn(object)).classId; });
  });
}

ZQS_EXPORT bool zqvorexStorage_isObjectSimulated(uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status) {
  return guarded(status, false, [&] {
    return readWith(lock, [&](Database& db) {
      const ObjectId id = idIn(object);
      requireObject(db, id);
      auto value = findProperty(db, id, ZQVOREX_DEVICE_PROPERTY_SIMULATED);
      return value && asBool(*value, describeProperty(db, id, ZQVOREX_DEVICE_PROPERTY_SIMULATED));
    });
  });
}

ZQS_EXPORT bool zqvorexStorage_isObjectPresent(uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status) {
  return guarded(status, false, [&] { return readWith(lock, [&](Database& db) { return findObject(db, idIn(object)).has_value(); }); });
}

ZQS_EXPORT void zqvorexStorage_copyObjectToDestination(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                                       uint64_t destinationLock, zqvorexStorage_ObjectID* copy,
                                                       zqerr_Status* status) {
  guardedVoid(status, [&] {
    const ObjectId id = idIn(object);
    if (resolve(lock).session == resolve(destinationLock).session) {
      fail(kInvalidParameter, ZQS_HERE, "the destination must be a lock of another session");
    }
    // Read on one session, then write on the other: never both sessions' mutexes at once.
    const ObjectTree tree = readWith(lock, [&](Database& db) { return readTree(db, id); });
    const ObjectId copied = writeWith(destinationLock, [&](Database& db) { return writeTree(db, tree, nullptr); });
    if (copy) idOut(copied, copy);
  });
}

ZQS_EXPORT void zqvorexStorage_appendObjectsForStorageClass(uint64_t lock, uint32_t storageClass,
                                                            zqgopher_IItemAdder* objects, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putIds(objects, readWith(lock, [&](Database& db) { return objectsOfClass(db, storageClass, false); }), status);
  });
}

ZQS_EXPORT void zqvorexStorage_appendObjectsForStorageClassSortedByName(uint64_t lock, uint32_t storageClass,
                                                                        zqgopher_IItemAdder* objects, zqerr_Status* status) {
  guardedVoid(status, [&] {
    putIds(objects, readWith(lock, [&](Database& db) { return objectsOfClass(db, storageClass, true); }), status);
  });
}

ZQS_EXPORT bool zqvorexStorage_persistedTaskAssistantBlobPresent(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                                                  zqerr_Status* status) {
  return guarded(status, false, [&] { return readWith(lock, [&](Database& db) { return holdsTaskSpec(db, idIn(object)); }); });
}

ZQS_EXPORT bool zqvorexStorage_persistedChannelBlobPresent(uint64_t lock, const zqvorexStorage_ObjectID* object,
                                                            zqerr_Status* status) {
  return guarded(status, false, [&] { return readWith(lock, [&](Database& db) { return holdsChannelSpec(db, idIn(object)); }); });
}

ZQS_EXPORT void zqvorexStorage_getConfiguredDevices(uint64_t lock, uint32_t classId, zqgopher_IItemAdder* devices,
                                                    zqerr_Status* status) {
  guardedVoid(status, [&] {
    putIds(devices, readWith(lock, [&](Database& db) { return configuredDevices(db, classId); }), status);
  });
}

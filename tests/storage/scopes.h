// The storage library through the driver's own bound classes, and its sessions and locks as
// scope objects for the tests, ended with a status of their own.
#pragma once

#include <string>
#include <vector>

#include "boundary_doubles.h"
#include "report_query.h"
#include "status/status.h"
#include "test_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest {

inline zqvorexStorageCpp::Storage& storage() { return *storageBindings().storage; }
inline zqvorexStorageCpp::StorageSpec& specs() { return *storageBindings().storageSpec; }
inline zqvorexStorageCpp::ChannelSpecification& channelSpec() { return *storageBindings().channelSpecification; }
inline zqvorexStorageCpp::ChannelTaskSpecification& taskSpec() { return *storageBindings().channelTaskSpecification; }
inline zqvorexStorageCpp::Capabilities& caps() { return *storageBindings().capabilities; }

class SessionScope {
 public:
  explicit SessionScope(const char* url = "127.0.0.1", zqerr_Status* status = nullptr) {
    zqerr::Status local;
    id = storage().getSession(url, status ? status : &local);
  }
  ~SessionScope() {
    zqerr::Status local;
    if (id) storage().releaseSession(id, &local);
  }
  SessionScope(const SessionScope&) = delete;
  SessionScope& operator=(const SessionScope&) = delete;
  uint64_t id = 0;
};

class LockScope {
 public:
  enum Kind { kRead, kWrite, kSpecRead, kSpecWrite };
  LockScope(uint64_t session, Kind kind, zqerr_Status* status = nullptr) : kind_(kind) {
    zqerr::Status local;
    zqerr_Status* s = status ? status : &local;
    switch (kind) {
      case kRead: id = storage().beginReadOperation(session, s); break;
      case kWrite: id = storage().beginWriteOperation(session, s); break;
      case kSpecRead: id = specs().beginStorageSpecReadOperation(session, s); break;
      case kSpecWrite: id = specs().beginStorageSpecWriteOperation(session, s); break;
    }
  }
  ~LockScope() { end(); }
  void end() {
    zqerr::Status local;
    if (id == 0) return;
    switch (kind_) {
      case kRead: storage().endReadOperation(id, &local); break;
      case kWrite: storage().endWriteOperation(id, &local); break;
      case kSpecRead: specs().endStorageSpecReadOperation(id, &local); break;
      case kSpecWrite: specs().endStorageSpecWriteOperation(id, &local); break;
    }
    id = 0;
  }
  LockScope(const LockScope&) = delete;
  LockScope& operator=(const LockScope&) = delete;
  uint64_t id = 0;

 private:
  Kind kind_;
};

// A device at the top of the store, under a write lock.
inline zqvorexStorage_ObjectID addDevice(uint64_t lock, const std::string& name, uint32_t classId, zqerr_Status* status) {
  zqvorexStorage_ObjectID id{};
  storage().createObject(lock, ZQVOREX_STORAGE_CLASS_DEVICE, classId, name.c_str(), nullptr, &id, status);
  return id;
}

// The names of objects, in the order given.
inline std::vector<std::string> namesOf(uint64_t lock, const IdsOut& ids, zqerr_Status* status) {
  std::vector<std::string> names;
  for (const auto& id : ids.items) {
    TextOut name;
    storage().getObjectName(lock, &id, name.get(), status);
    names.push_back(name.text);
  }
  return names;
}

// The names of the objects of a storage class, in the store's order.
inline std::vector<std::string> namesOfClass(uint64_t lock, uint32_t storageClass, zqerr_Status* status) {
  IdsOut ids;
  storage().appendObjectsForStorageClass(lock, storageClass, ids.get(), status);
  return namesOf(lock, ids, status);
}

}  // namespace zqtest

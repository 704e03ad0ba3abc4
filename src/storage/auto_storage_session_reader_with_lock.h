// A read lock on a storage session for the length of a scope: the reads under it see one
// stable state of the store.
#pragma once

#include <cstdint>
#include <memory>

#include "status/status.h"
#include "storage/storage.h"

namespace zqvorexStorageCpp {

class AutoStorageSessionReaderWithLock {
 public:
  // beginReadOperation on `session`. A null session or storage sets zqpalerr_badPointer, and
  // the scope holds 0.
  AutoStorageSessionReaderWithLock(std::shared_ptr<Storage> storage, uint64_t session, zqerr_Status* status);
  // endReadOperation with a status of its own, which is dropped.
  ~AutoStorageSessionReaderWithLock();
  AutoStorageSessionReaderWithLock(const AutoStorageSessionReaderWithLock&) = delete;
  AutoStorageSessionReaderWithLock& operator=(const AutoStorageSessionReaderWithLock&) = delete;

  uint64_t get() const { return lock_; }

 private:
  std::shared_ptr<Storage> storage_;
  uint64_t lock_ = 0;
};

}  // namespace zqvorexStorageCpp

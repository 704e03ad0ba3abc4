// A specification section on a storage session for the length of a scope: saved tasks and
// channels are read under its token.
#pragma once

#include <cstdint>
#include <memory>

#include "status/status.h"
#include "storage/storage_spec.h"

namespace zqvorexStorageCpp {

class AutoStorageSessionSpecReaderWithLock {
 public:
  // beginStorageSpecReadOperation on `session`. A null session or bound class sets
  // zqpalerr_badPointer, and the scope holds 0.
  AutoStorageSessionSpecReaderWithLock(std::shared_ptr<StorageSpec> storageSpec, uint64_t session,
                                       zqerr_Status* status);
  // endStorageSpecReadOperation with a status of its own, which is dropped.
  ~AutoStorageSessionSpecReaderWithLock();
  AutoStorageSessionSpecReaderWithLock(const AutoStorageSessionSpecReaderWithLock&) = delete;
  AutoStorageSessionSpecReaderWithLock& operator=(const AutoStorageSessionSpecReaderWithLock&) = delete;

  uint64_t get() const { return token_; }

 private:
  std::shared_ptr<StorageSpec> storageSpec_;
  uint64_t token_ = 0;
};

}  // namespace zqvorexStorageCpp

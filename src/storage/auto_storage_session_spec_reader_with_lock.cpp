#include "storage/auto_storage_session_spec_reader_with_lock.h"

#include "status/error_sites.h"

namespace zqvorexStorageCpp {

AutoStorageSessionSpecReaderWithLock::AutoStorageSessionSpecReaderWithLock(
    std::shared_ptr<StorageSpec> storageSpec, uint64_t session, zqerr_Status* status)
    : storageSpec_(std::move(storageSpec)) {
  if (!storageSpec_ || session == 0) {
    ZQ_FAIL(status, kAutoStorageSessionSpecReaderWithLockBadPointer);
    return;
  }
  token_ = storageSpec_->beginStorageSpecReadOperation(session, status);
}

AutoStorageSessionSpecReaderWithLock::~AutoStorageSessionSpecReaderWithLock() {
  if (!storageSpec_) return;
  zqerr::Status own;
  storageSpec_->endStorageSpecReadOperation(token_, &own);
}

}  // namespace zqvorexStorageCpp

#include "storage/auto_storage_session_reader_with_lock.h"

#include "status/error_sites.h"

namespace zqvorexStorageCpp {

AutoStorageSessionReaderWithLock::AutoStorageSessionReaderWithLock(std::shared_ptr<Storage> storage,
                                                                   uint64_t session, zqerr_Status* status)
    : storage_(std::move(storage)) {
  if (!storage_ || session == 0) {
    ZQ_FAIL(status, kAutoStorageSessionReaderWithLockBadPointer);
    return;
  }
  lock_ = storage_->beginReadOperation(session, status);
}

AutoStorageSessionReaderWithLock::~AutoStorageSessionReaderWithLock() {
  if (!storage_) return;
  zqerr::Status own;
  storage_->endReadOperation(lock_, &own);
}

}  // namespace zqvorexStorageCpp

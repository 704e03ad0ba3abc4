#include "storage/auto_storage_session.h"

#include "status/error_sites.h"

namespace zqvorexStorageCpp {

AutoStorageSession::AutoStorageSession(std::shared_ptr<Storage> storage, uint64_t session,
                                       zqerr_Status* status)
    : storage_(std::move(storage)) {
  if (!storage_ || session == 0) {
    ZQ_FAIL(status, kAutoStorageSessionBadPointer);
    return;
  }
  session_ = session;
}

AutoStorageSession::~AutoStorageSession() {
  if (!storage_) return;
  zqerr::Status own;
  storage_->releaseSession(session_, &own);
}

}  // namespace zqvorexStorageCpp

// A storage session for the length of a scope.
#pragma once

#include <cstdint>
#include <memory>

#include "status/status.h"
#include "storage/storage.h"

namespace zqvorexStorageCpp {

class AutoStorageSession {
 public:
  // Holds `session`, as openSession or getSessionFromConfigString gave it. A null session or
  // storage sets zqpalerr_badPointer, and the scope holds 0.
  AutoStorageSession(std::shared_ptr<Storage> storage, uint64_t session, zqerr_Status* status);
  // releaseSession with a status of its own, which is dropped: the end never changes the
  // caller's result.
  ~AutoStorageSession();
  AutoStorageSession(const AutoStorageSession&) = delete;
  AutoStorageSession& operator=(const AutoStorageSession&) = delete;

  uint64_t get() const { return session_; }

 private:
  std::shared_ptr<Storage> storage_;
  uint64_t session_ = 0;
};

}  // namespace zqvorexStorageCpp

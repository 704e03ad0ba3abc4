// The way to a storage session for a url: through its secondary url when it has one.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "storage/storage.h"

namespace zqvorexStorageCpp {

// The session, or 0 on failure or when `storage` is null; the caller puts it into an
// AutoStorageSession, which refuses the 0.
uint64_t openSession(Storage* storage, const char* url, zqerr_Status* status);

}  // namespace zqvorexStorageCpp

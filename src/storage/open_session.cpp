#include "storage/open_session.h"

#include <string>

#include "boundary/string_adapter.h"

namespace zqvorexStorageCpp {

uint64_t openSession(Storage* storage, const char* url, zqerr_Status* status) {
  if (!storage) return 0;
  std::string secondary;
  zqgopher::StringAdapter secondaryOut(secondary);
  if (storage->getSecondaryUrl(url, secondaryOut.boundary(), status))
    return storage->getSessionWithSecondaryUrl(url, secondary.c_str(), status);
  return storage->getSession(url, status);
}

}  // namespace zqvorexStorageCpp

#include "guard.h"

#include <string>

#include "boundary_io.h"

namespace zqstorage {

void recordCurrentException(zqerr_Status* status) {
  try {
    throw;
  } catch (const AlreadyReported&) {
    // A boundary object of the caller set the status itself.
  } catch (const StorageError& error) {
    setStatus(status, error.constant(), error.site(), error.what(), error.extra());
  } catch (const std::bad_alloc&) {
    setStatus(status, kMemoryFull, ZQS_HERE, "out of memory");
  } catch (const std::exception& error) {
    setStatus(status, kSoftwareFault, ZQS_HERE, error.what());
  } catch (...) {
    setStatus(status, kSoftwareFault, ZQS_HERE, "unknown exception");
  }
}

}  // namespace zqstorage

#include "status/error_sites.h"
#include "text/status_ref.h"

namespace zqhtl::err {

void StatusRef::memoryFull() const {
  if (status_) {
    ZQ_FAIL(status_, kAllocatorMemoryFull);
  } else {
    zqerr::setFixed(fixed_, zqsite::kAllocatorMemoryFull);
  }
}

}  // namespace zqhtl::err

#include "status/status_codes.h"
#include "text/status_ref.h"

namespace zqhtl::err {

void StatusRef::memoryFull() const {
  if (status_) {
    ZQ_FAIL(status_, zqapalerr_memoryFull, "zqhtl/err/Allocator", 32);
  } else {
    zqerr::setFixed(fixed_, zqapalerr_memoryFull, zqerr::kComponent, "zqhtl/err/Allocator", 32);
  }
}

}  // namespace zqhtl::err

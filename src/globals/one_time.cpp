#include "globals/one_time.h"

#include "platform/platform.h"

namespace nZQCAI100 {

void runOnce(OneTimeRecord& record, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  uint32_t built = 1;
  if (record.state.compare_exchange_strong(built, 1, std::memory_order_acq_rel)) return;
  for (uint32_t idle = 0; !record.busy.compare_exchange_strong(idle, 1, std::memory_order_acquire); idle = 0)
    zqplatform::sleepMs(record.sleepMilliseconds);
  if (record.state.load(std::memory_order_acquire) == 0) {
    record.initialise(status);
    if (zqerr::isOpen(status)) record.state.exchange(1, std::memory_order_acq_rel);
  }
  record.busy.exchange(0, std::memory_order_release);
}

}  // namespace nZQCAI100

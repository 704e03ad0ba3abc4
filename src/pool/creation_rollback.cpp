#include "pool/creation_rollback.h"

#include "status/error_sites.h"

namespace nZQCAI100 {

TaskRollback::TaskRollback(std::shared_ptr<ITaskPool> pool, zqerr_Status* status)
    : pool_(std::move(pool)), status_(status) {
  if (!pool_) ZQ_FAIL(status, kTaskPoolBadPointer);
}

TaskRollback::~TaskRollback() {
  if (!armed_ || !task_ || zqerr::isOpen(status_) || !pool_) return;
  zqerr::Status local;
  pool_->removeTask(std::move(task_), &local);
}

void TaskRollback::arm(TaskRef task) {
  task_ = std::move(task);
  armed_ = true;
}

}  // namespace nZQCAI100

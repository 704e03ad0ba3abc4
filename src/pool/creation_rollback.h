// The undo of one task creation: a task that entered the pool and then failed in the same
// call leaves the pool again when the scope ends.
#pragma once

#include <memory>

#include "pool/task_pool.h"

namespace nZQCAI100 {

class TaskRollback {
 public:
  // No pool: zqpalerr_badPointer, and nothing to undo.
  TaskRollback(std::shared_ptr<ITaskPool> pool, zqerr_Status* status);
  // Takes the task out of the pool if it was armed and the call's status has failed; the
  // removal's own outcome is dropped.
  ~TaskRollback();
  TaskRollback(const TaskRollback&) = delete;
  TaskRollback& operator=(const TaskRollback&) = delete;

  // The task is in the pool now.
  void arm(TaskRef task);

 private:
  std::shared_ptr<ITaskPool> pool_;
  zqerr_Status* status_;
  bool armed_ = false;
  TaskRef task_;
};

}  // namespace nZQCAI100

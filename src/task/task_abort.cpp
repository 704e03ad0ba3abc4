// abortTask overtakes a call in progress: it takes the state lock, shared, instead of the
// task's mutex, which a blocked read may hold. The debug target aborts through its callbacks
// the same way.
#include "task/task_frame.h"

namespace zqvorexRedir {

void Task::abortTaskOwn(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    debug_.checkControl(false, status);
    if (debug_.refusesOperation(status)) return;
    plugin_.abort(status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::abortThroughCallbacks(ILockable& task, zqerr_Status* status) {
  static_cast<Task&>(task).plugin_.abort(status);
}

}  // namespace zqvorexRedir

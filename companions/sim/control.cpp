#include "control.h"

#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;

void abortLocked(SimTask& task) {
  ++task.abortGeneration;
  if (task.running) task.stop();
  task.unreserve();
  if (task.state > TaskState::kVerified) task.state = TaskState::kVerified;
  task.changed.notify_all();
}

}  // namespace

void controlTask(SimTask& task, int32_t action, zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  switch (action) {
    case kActionStart:
      task.start(false, status);
      return;
    case kActionStop:
      task.stop();
      return;
    case kActionVerify:
      if (!task.running) task.verify(status);
      return;
    case kActionCommit:
    case kActionReserve:
      if (!task.running && task.reserve(status) && action == kActionCommit)
        task.state = TaskState::kCommitted;
      return;
    case kActionUnreserve:
      if (task.running) task.stop();
      task.unreserve();
      return;
    case kActionAbort:
      abortLocked(task);
      return;
    default:
      SIM_FAIL(
          status, nZQMDEV::kErrorValueOutOfRange,
          Items().i32(usage::kValueRequested, action).text(usage::kAllowedValues, "0, 1, 2, 3, 4, 5, 6"));
  }
}

void abortTask(SimTask& task, zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  abortLocked(task);
}

void waitUntilDone(SimTask& task, double timeout, zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::unique_lock<std::mutex> lock(task.mutex);
  const int outcome = task.waitFor(
      lock, timeout, [&] { return task.done(); },
      [&] {
        if (task.run && task.run->pulses) return task.run->pulses->finish();
        return task.run && task.run->timeline ? task.run->timeline->finishTime() : kForever;
      });
  if (task.reportRunError(status)) return;
  if (outcome < 0) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationAborted, Items().text(usage::kTaskName, task.name));
  } else if (outcome == 0) {
    SIM_FAIL(status, nZQMDEV::kErrorWaitTimeout,
             Items().f64(usage::kTimeout, timeout).text(usage::kTaskName, task.name));
  }
}

bool isDone(SimTask& task, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  std::lock_guard<std::mutex> guard(task.mutex);
  task.update();
  if (task.reportRunError(status)) return true;
  return task.done();
}

}  // namespace zqsim

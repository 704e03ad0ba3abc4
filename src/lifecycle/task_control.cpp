#include "lifecycle/task_control.h"

#include <utility>

#include "frame/task_holder.h"
#include "globals/shared_globals.h"
#include "status/error_sites.h"

namespace nZQCAI100 {

namespace {

enum class Path { start, stopping, abort, plain };

constexpr int32_t kStart = 0;
constexpr int32_t kAbort = 6;

Path pathOf(int32_t action) {
  switch (action) {
    case kStart: return Path::start;
    case 1:
    case 5:
    case 7: return Path::stopping;
    case kAbort: return Path::abort;
    default: return Path::plain;
  }
}

// A standing mark ends at a start. With synchronous registrations events of the last run may
// still be queued, so the sentinel goes behind them and clears the mark when it is handled;
// without them nothing is queued, and the mark goes at once, so that a task with only direct
// callbacks gets its events again.
void resumeEvents(ICTaskEventsList& events, TaskHandle handle) {
  if (!events.isMarked(handle)) return;
  if (events.getRegistrationState(handle) == 0)
    events.clearMark(handle);
  else
    events.flush(handle);
}

// Stop and abort: nothing queued before reaches a callback, and no callback of the task runs on
// another thread once this returns.
template <class Stop>
void stopEvents(ICTaskEventsList* events, TaskHandle handle, Stop&& stop) {
  if (events) events->markStopping(handle);
  stop();
  if (!events) return;
  events->flush(handle);
  events->awaitDeliveries(handle);
}

}  // namespace

void controlTask(zqvorexRedir::ITask& task, TaskHandle handle, int32_t action, zqerr_Status* status) {
  zqerr::Status own;
  std::shared_ptr<ICTaskEventsList> events = getTaskEventsList(&own);
  const Path path = pathOf(action);
  if (path != Path::plain && events && events->getRegistrationState(handle) < 0) {
    ZQ_FAIL(status, kCtaskControlForeignThread);
    return;
  }
  switch (path) {
    case Path::abort:
      stopEvents(events.get(), handle, [&] { task.abortTask(status); });
      break;
    case Path::stopping:
      stopEvents(events.get(), handle, [&] { task.controlTask(action, true, status); });
      break;
    case Path::start:
      if (events) resumeEvents(*events, handle);
      task.controlTask(kStart, true, status);
      break;
    case Path::plain:
      task.controlTask(action, true, status);
      break;
  }
}

void clearTask(ICTaskEventsList& events, TaskHandle handle, zqerr_Status* status) {
  // The pool knows every live handle, so a clear of one already cleared (or of any address that
  // is no task) is refused before anything touches the object.
  auto pool = getTaskPool(status);
  if (!pool) return;
  std::shared_ptr<zqvorexRedir::ITask> task = pool->getTask(handle, status);
  if (!task) return;
  const int32_t state = events.getRegistrationState(handle);
  if (state < 0) {
    ZQ_FAIL(status, kCtaskClearForeignThread);
    return;
  }
  events.markStopping(handle);
  events.retireActions(handle);
  events.flush(handle);
  events.forgetTask(handle);
  events.awaitDeliveries(handle);
  // Its actions are retired: with nothing queued for a sentinel to pass, the mark goes now, so
  // that a later task at the same address does not start out marked.
  if (state == 0) events.clearMark(handle);
  zqerr::Status removed;
  pool->removeTask(std::move(task), &removed);
  zqerr::adopt(status, &removed);
}

}  // namespace nZQCAI100

// Construction, destruction and the task's lock.
#include "task/task.h"

#include <memory>

#include "status/exceptions.h"

namespace zqvorexRedir {

Task::Task(TaskParts parts)
    : identity_(std::move(parts)), debug_(*this, &Task::abortThroughCallbacks, plugin_.stateLock(), lock_) {}

// The parts go in the reverse of their declaration: the debug objects first, then the plug-in
// task, its context and the library.
Task::~Task() = default;

void Task::lock(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    lock();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

// The strong reference of a call, made from the weak self-reference where it stands: a copy of
// it first, as weak_from_this().lock() makes, costs two more atomic operations on every call.
// Only a task being destroyed throws here.
std::shared_ptr<ITask> Task::sharedFromThis() {
  try {
    return shared_from_this();
  } catch (const std::bad_weak_ptr&) {
    return nullptr;
  }
}

std::shared_ptr<const ITask> Task::sharedFromThis() const {
  try {
    return shared_from_this();
  } catch (const std::bad_weak_ptr&) {
    return nullptr;
  }
}

}  // namespace zqvorexRedir

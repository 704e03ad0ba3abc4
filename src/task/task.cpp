// Construction, destruction and the task's lock.
#include "task/task.h"

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

void Task::lock() { lock_.lock(); }

void Task::unlock() {
  lock_.unlock([this](uint32_t bits) { return debug_.takeOut(bits); });
}

}  // namespace zqvorexRedir

// The frames that the task's operations run: the common one of every forwarded operation, and
// that of a channel creation, which may bind the task first and undoes what a failure leaves.
#pragma once

#include "status/exceptions.h"
#include "task/channel_creation_scope.h"
#include "task/operation_arguments.h"
#include "task/task.h"

namespace zqvorexRedir {

// Holds the task's mutex for one operation; lets it go through unlock(), so that a deferred
// release happens at the last one.
class Task::FrameLock {
 public:
  explicit FrameLock(Task& task) : task_(task) { task_.lock(); }
  ~FrameLock() { task_.unlock(); }
  FrameLock(const FrameLock&) = delete;
  FrameLock& operator=(const FrameLock&) = delete;

 private:
  Task& task_;
};

template <class R, class Call, class Absent>
R Task::runFrame(zqerr_Status* status, Call&& call, Absent&& absent) {
  if (!zqerr::isOpen(status)) return R();
  try {
    debug_.checkControl(true, status);
    FrameLock held(*this);
    if (debug_.refusesOperation(status)) return R();
    if (plugin_.bound()) return call(*plugin_.plugin(), plugin_.task());
    return absent();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

template <class R, class Attach, class Call, class Absent>
R Task::runChannelCreation(zqerr_Status* status, Attach&& attach, Call&& call, Absent&& absent) {
  if (!zqerr::isOpen(status)) return R();
  try {
    debug_.checkControl(true, status);
    ChannelCreationScope scope(*this, plugin_, names_, debug_);
    PluginBinder binding = binder();
    // A debug session has no devices of its own: its plug-in comes with the commit.
    if (!debug_.attributes().isDebugSession()) {
      attach(binding, scope);
      if (!zqerr::isOpen(status)) return R();
    }
    if (debug_.refusesOperation(status)) return R();
    if (!plugin_.bound()) {
      absent();
      return R();
    }
    call(*plugin_.plugin(), plugin_.task());
    binding.syncDebugTarget(scope, status);
    if (zqerr::isOpen(status)) scope.commit();
    return R();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

}  // namespace zqvorexRedir

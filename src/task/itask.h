// The interface behind a task handle. Its table of virtual operations is fixed: the lockable
// part, the task's own accessors, then the operations in the order of the plug-in table, with
// the plug-in's names and arguments less the plug-in's handle. Text arrives as library text
// and lists of names as StringArrayView; every operation takes the status last.
#pragma once

#include <cstdint>
#include <memory>

#include "task/task_types.h"
#include "zqvorex_plugin.h"

namespace zqvorexRedir {

class ILockable {
 public:
  virtual ~ILockable() = default;
  // Nothing when the status already holds an error; a failure of the lock goes to the status.
  virtual void lock(zqerr_Status* status) = 0;
  virtual void lock() = 0;
  virtual void unlock() = 0;
};

class ITask : public ILockable {
 public:
  virtual const Text& getName() const = 0;
  virtual std::shared_ptr<IContext> getContext() = 0;
  virtual std::shared_ptr<IContext> getContext() const = 0;
  virtual EventTokens getEvents(int32_t eventId, zqerr_Status* status) = 0;
  // Empty once the object is being destroyed.
  virtual std::shared_ptr<ITask> sharedFromThis() = 0;
  virtual std::shared_ptr<const ITask> sharedFromThis() const = 0;

#include "task/itask_operations.inc"
};

}  // namespace zqvorexRedir

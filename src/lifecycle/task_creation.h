// The one way a task comes to exist from the C interface: the factory makes it, the pool takes
// it, and a failure later in the same call takes it out again. The exported function holds the
// TaskCreation for the whole call, so that its rollback covers everything after. Creation, loading, creation from
// text and watchdog tasks all go through here.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "contexts/context.h"
#include "pool/creation_rollback.h"
#include "task/itask_factory.h"

namespace nZQCAI100 {

class TaskCreation {
 public:
  // Gets the context manager, the factory and the pool; the first failure (such as a root that
  // cannot be built) makes the rest do nothing. Without a pool: zqpalerr_badPointer.
  explicit TaskCreation(zqerr_Status* status);
  TaskCreation(const TaskCreation&) = delete;
  TaskCreation& operator=(const TaskCreation&) = delete;

  // Has `make` build the task from the factory and the process's default context, and enters
  // it in the pool. Null when anything failed.
  template <class Make>
  TaskRef make(Make&& make) {
    if (!zqerr::isOpen(status_)) return nullptr;
    std::shared_ptr<zqvorexRedir::IContext> context = contexts_->getContext("", status_);
    if (!zqerr::isOpen(status_)) return nullptr;
    TaskRef task = make(*factory_, std::move(context), status_);
    if (!zqerr::isOpen(status_)) return nullptr;
    return enter(std::move(task));
  }

 private:
  TaskRef enter(TaskRef task);

  zqerr_Status* status_;
  std::shared_ptr<zqvorexRedir::IContextManager> contexts_;
  std::shared_ptr<zqvorexRedir::ITaskFactory> factory_;
  TaskRollback rollback_;  // last: it ends first, while the services are still held
};

// The name of a new task from `name`, already converted and stripped: generated when it is
// empty, else `name` itself, which must pass the rule for task names.
std::string newTaskName(const std::string& name, zqerr_Status* status);
// VorexCreateTask's task, named by newTaskName.
TaskRef createNamedTask(TaskCreation& creation, const std::string& name, zqerr_Status* status);
// VorexLoadTask's task: the saved task of that name; an empty name is kErrorInvalidTask.
TaskRef loadSavedTask(TaskCreation& creation, const std::string& name, zqerr_Status* status);

// The format VorexCreateTaskFromINI gives the factory: INI text, as the storage library and the
// plug-ins read it (docs/task-ini-format.md).
inline constexpr uint32_t kIniTextFormat = 0;

// VorexCreateTaskFromINI's task, named as VorexCreateTask's, from `iniText`.
TaskRef createTaskFromText(TaskCreation& creation, const std::string& name, const std::string& iniText,
                           zqerr_Status* status);

}  // namespace nZQCAI100

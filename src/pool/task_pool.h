// The process-wide register of live tasks. A handle is the address of the task object; the
// pool keeps the object alive between calls and keeps task names unique in the process,
// whatever their case.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "frame/task_holder.h"
#include "platform/platform.h"
#include "pool/task_keys.h"
#include "status/status.h"
#include "task/itask.h"

namespace nZQCAI100 {

using TaskRef = std::shared_ptr<zqvorexRedir::ITask>;
using zqframe::TaskHandle;

class ITaskPool {
 public:
  virtual ~ITaskPool() = default;
  // Enters the task under its address and its name; -200089 when either is taken. The
  // argument is released before the call returns, in every outcome.
  virtual void addTask(TaskRef task, zqerr_Status* status) = 0;
  // Takes the task out of both maps; -200088 when neither held it.
  virtual void removeTask(TaskRef task, zqerr_Status* status) = 0;
  // The task of that handle, or null; reports nothing.
  virtual TaskRef findTask(TaskHandle handle) = 0;
  // The task of that handle; -200088 when there is none.
  virtual TaskRef getTask(TaskHandle handle, zqerr_Status* status) = 0;
  virtual void getTaskInto(TaskHandle handle, TaskRef* task, zqerr_Status* status) = 0;
};

class TaskPool final : public ITaskPool {
 public:
  // With a failed status the maps are not made; the root then gives the pool up.
  explicit TaskPool(zqerr_Status* status);
  TaskPool(const TaskPool&) = delete;
  TaskPool& operator=(const TaskPool&) = delete;

  void addTask(TaskRef task, zqerr_Status* status) override;
  void removeTask(TaskRef task, zqerr_Status* status) override;
  TaskRef findTask(TaskHandle handle) override;
  TaskRef getTask(TaskHandle handle, zqerr_Status* status) override;
  void getTaskInto(TaskHandle handle, TaskRef* task, zqerr_Status* status) override;

 private:
  using ByHandle = std::unordered_map<const void*, TaskRef, TaskAddressHash>;
  using ByName = std::unordered_map<std::string, TaskRef, TaskNameHash, TaskNameEqual>;

  void insert(const TaskRef& task, zqerr_Status* status);
  size_t erase(const TaskRef& task);

  zqplatform::SlimLock lock_;
  std::unique_ptr<ByHandle> byHandle_;
  std::unique_ptr<ByName> byName_;
};

// The address under which the pool knows a task: the handle the application holds.
inline const void* taskAddress(const zqvorexRedir::ITask& task) { return &task; }

}  // namespace nZQCAI100

// What makes task objects. Every operation makes the object, runs its set-up under the task's
// lock, and gives it back; when the status has failed by then, the object is dropped and the
// result is null. The table's order is fixed: plug-ins and other users of the interface
// depend on it.
#pragma once

#include <cstdint>
#include <memory>

#include "task/itask.h"

namespace zqvorexRedir {

class ITaskFactory {
 public:
  virtual ~ITaskFactory() = default;
  // `taskKind` is 4 from the task-creating call of the API; with both lists empty the task
  // stays unbound until its first channel.
  virtual std::shared_ptr<ITask> createTask(std::shared_ptr<IContext> context, const Text& savedTaskName,
                                            const Text& channelNames, const Text& name, uint32_t taskKind,
                                            zqerr_Status* status) = 0;
  virtual std::shared_ptr<ITask> createGrpcTask(std::shared_ptr<IContext> context, const Text& name,
                                                const Text& sessionName, int32_t sessionFlags,
                                                zqerr_Status* status) = 0;
  virtual std::shared_ptr<ITask> createTaskFromString(std::shared_ptr<IContext> context, const Text& name,
                                                      uint32_t format, const Text& configString,
                                                      zqerr_Status* status) = 0;
  // A saved task, by its stored name, which also names the task.
  virtual std::shared_ptr<ITask> loadTask(std::shared_ptr<IContext> context, const Text& name,
                                          zqerr_Status* status) = 0;
  // `value` goes to the platform plug-in as the saved task's name.
  virtual std::shared_ptr<ITask> createPlatformTask(std::shared_ptr<IContext> context, const Text& value,
                                                    const Text& name, zqerr_Status* status) = 0;
  virtual std::shared_ptr<ITask> autoCreateTask(std::shared_ptr<IContext> context, const Text& channelNames,
                                                zqerr_Status* status) = 0;
  virtual std::shared_ptr<ITask> createWatchdogTask(std::shared_ptr<IContext> context, const Text& deviceName,
                                                    const Text& name, zqerr_Status* status) = 0;
  virtual std::shared_ptr<ITask> createScanlistTask(std::shared_ptr<IContext> context, const Text& name,
                                                    const Text& scanList, zqerr_Status* status) = 0;
  // A task that answers every call with `answer` (null: success).
  virtual std::shared_ptr<ITask> createNullTask(std::shared_ptr<IContext> context, const Text& name,
                                                const zqerr_Status* answer, zqerr_Status* status) = 0;
};

}  // namespace zqvorexRedir

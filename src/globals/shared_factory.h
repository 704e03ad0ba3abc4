// The factory of task objects. It has no data of its own: each request copies the task's
// collaborators (plug-in manager, selector, debug server factory) out of the shared record.
#pragma once

#include "task/itask_factory.h"

namespace nZQCAI100 {

class SharedFactory final : public zqvorexRedir::ITaskFactory {
 public:
  using ITask = zqvorexRedir::ITask;
  using IContext = zqvorexRedir::IContext;
  using Text = zqvorexRedir::Text;

  std::shared_ptr<ITask> createTask(std::shared_ptr<IContext> context, const Text& savedTaskName,
                                    const Text& channelNames, const Text& name, uint32_t taskKind,
                                    zqerr_Status* status) override;
  std::shared_ptr<ITask> createGrpcTask(std::shared_ptr<IContext> context, const Text& name, const Text& sessionName,
                                        int32_t sessionFlags, zqerr_Status* status) override;
  std::shared_ptr<ITask> createTaskFromString(std::shared_ptr<IContext> context, const Text& name, uint32_t format,
                                              const Text& configString, zqerr_Status* status) override;
  std::shared_ptr<ITask> loadTask(std::shared_ptr<IContext> context, const Text& name, zqerr_Status* status) override;
  std::shared_ptr<ITask> createPlatformTask(std::shared_ptr<IContext> context, const Text& value, const Text& name,
                                            zqerr_Status* status) override;
  std::shared_ptr<ITask> autoCreateTask(std::shared_ptr<IContext> context, const Text& channelNames,
                                        zqerr_Status* status) override;
  std::shared_ptr<ITask> createWatchdogTask(std::shared_ptr<IContext> context, const Text& deviceName,
                                            const Text& name, zqerr_Status* status) override;
  std::shared_ptr<ITask> createScanlistTask(std::shared_ptr<IContext> context, const Text& name, const Text& scanList,
                                            zqerr_Status* status) override;
  std::shared_ptr<ITask> createNullTask(std::shared_ptr<IContext> context, const Text& name,
                                        const zqerr_Status* answer, zqerr_Status* status) override;
};

}  // namespace nZQCAI100

// Each request makes the object, runs its set-up, and gives it back only when the status is
// still clean: a task whose set-up failed is destroyed here, before anyone sees it.
#include "globals/shared_factory.h"

#include "globals/shared_globals.h"
#include "status/exceptions.h"
#include "status/error_sites.h"
#include "task/null_task.h"
#include "task/task.h"

namespace nZQCAI100 {

namespace {

using zqvorexRedir::Task;
using zqvorexRedir::TaskParts;

constexpr uint32_t kOther = zqvorexRedir::kTaskKindOther;

// The record is there while the factory is: the factory is one of its fields. After exit has
// abandoned it, no task can be made.
bool takeServices(TaskParts& parts, zqerr_Status* status) {
  SharedGlobals* globals = currentSharedGlobals();
  if (!globals) {
    ZQ_FAIL(status, kTaskFactorySoftwareFault);
    return false;
  }
  parts.pluginManager = globals->pluginManager;
  parts.pluginSelector = globals->pluginSelector;
  parts.debugServerFactory = globals->debugServerFactory;
  return true;
}

template <class SetUp>
std::shared_ptr<zqvorexRedir::ITask> makeTask(std::shared_ptr<zqvorexRedir::IContext> context,
                                              zqvorexRedir::Text name, uint32_t taskKind, zqerr_Status* status,
                                              SetUp&& setUp) {
  if (!zqerr::isOpen(status)) return nullptr;
  try {
    TaskParts parts;
    parts.context = std::move(context);
    parts.name = std::move(name);
    parts.taskKind = taskKind;
    if (!takeServices(parts, status)) return nullptr;
    auto task = std::make_shared<Task>(std::move(parts));
    setUp(*task);
    if (!zqerr::isOpen(status)) return nullptr;
    return task;
  } catch (...) {
    zqerr::convertCurrentException(status);
    return nullptr;
  }
}

}  // namespace

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createTask(std::shared_ptr<IContext> context,
                                                                const Text& savedTaskName, const Text& channelNames,
                                                                const Text& name, uint32_t taskKind,
                                                                zqerr_Status* status) {
  return makeTask(std::move(context), name, taskKind, status,
                  [&](Task& task) { task.setUpCreate(savedTaskName, channelNames, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createGrpcTask(std::shared_ptr<IContext> context,
                                                                    const Text& name, const Text& sessionName,
                                                                    int32_t sessionFlags, zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status,
                  [&](Task& task) { task.setUpGrpc(sessionName, sessionFlags, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createTaskFromString(std::shared_ptr<IContext> context,
                                                                          const Text& name, uint32_t format,
                                                                          const Text& configString,
                                                                          zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status,
                  [&](Task& task) { task.setUpFromString(format, configString, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::loadTask(std::shared_ptr<IContext> context, const Text& name,
                                                              zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status, [&](Task& task) { task.setUpLoad(status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createPlatformTask(std::shared_ptr<IContext> context,
                                                                        const Text& value, const Text& name,
                                                                        zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status, [&](Task& task) { task.setUpPlatform(value, status); });
}

// The plug-in's operation takes no task name, so the task has none.
std::shared_ptr<zqvorexRedir::ITask> SharedFactory::autoCreateTask(std::shared_ptr<IContext> context,
                                                                    const Text& channelNames, zqerr_Status* status) {
  return makeTask(std::move(context), Text(), kOther, status, [&](Task& task) { task.setUpAuto(channelNames, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createWatchdogTask(std::shared_ptr<IContext> context,
                                                                        const Text& deviceName, const Text& name,
                                                                        zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status, [&](Task& task) { task.setUpWatchdog(deviceName, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createScanlistTask(std::shared_ptr<IContext> context,
                                                                        const Text& name, const Text& scanList,
                                                                        zqerr_Status* status) {
  return makeTask(std::move(context), name, kOther, status, [&](Task& task) { task.setUpScanlist(scanList, status); });
}

std::shared_ptr<zqvorexRedir::ITask> SharedFactory::createNullTask(std::shared_ptr<IContext> context,
                                                                    const Text& name, const zqerr_Status* answer,
                                                                    zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  try {
    return std::make_shared<zqvorexRedir::NullTask>(std::move(context), name, answer);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return nullptr;
  }
}

}  // namespace nZQCAI100

// Construction, destruction, the task's lock and the guarded stores of the plug-in parts.
#include <mutex>

#include "status/exceptions.h"
#include "zqvorex_status_codes.h"
#include "task/task.h"

namespace zqvorexRedir {

Task::Task(TaskParts parts)
    : context_(std::move(parts.context)),
      taskKind_(parts.taskKind),
      pluginManager_(std::move(parts.pluginManager)),
      pluginSelector_(std::move(parts.pluginSelector)),
      debugServerFactory_(std::move(parts.debugServerFactory)),
      name_(std::move(parts.name)),
      isDeviceTask_(parts.isDeviceTask),
      targetCallbacks_(static_cast<ILockable&>(*this), targetFlags_, &Task::abortThroughCallbacks) {}

// The members go in the reverse of their declaration: the debug objects first, then the
// plug-in task, its context and the library.
Task::~Task() = default;

void Task::lock(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    lock();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::lock() {
  mutex_.lock();
  ++lockDepth_;
}

void Task::unlock() {
  if (deferredRelease_ == 0) {
    --lockDepth_;
    mutex_.unlock();
    return;
  }
  if (--lockDepth_ > 0) {
    mutex_.unlock();
    return;
  }
  std::shared_ptr<IDebugTarget> target;
  std::shared_ptr<IDebugServer> server;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    if (deferredRelease_ & kReleaseDebugTarget) target = std::move(debugTarget_);
    if (deferredRelease_ & kReleaseDebugServer) server = std::move(debugServer_);
    deferredRelease_ &= ~(kReleaseDebugTarget | kReleaseDebugServer);
  }
  mutex_.unlock();
  // Their destruction may call back into the task, so it happens without the mutex.
  server.reset();
  target.reset();
}

void Task::setPlugin(std::shared_ptr<Plugin> plugin, std::string pluginName) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  plugin_ = std::move(plugin);
  pluginName_ = std::move(pluginName);
}

void Task::setPluginContext(PluginContextPtr pluginContext) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  pluginContext_ = std::move(pluginContext);
}

void Task::setPluginTask(PluginTaskPtr pluginTask) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  pluginTask_ = std::move(pluginTask);
}

void Task::setDebugServer(std::shared_ptr<IDebugServer> server) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  debugServer_ = std::move(server);
}

void Task::setDebugTarget(std::shared_ptr<IDebugTarget> target) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  debugTarget_ = std::move(target);
}

}  // namespace zqvorexRedir

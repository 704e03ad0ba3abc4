#include "task/channel_creation_scope.h"

#include <mutex>
#include <vector>

namespace zqvorexRedir {

namespace {

// Runs one notice to the target with a status of its own; the first failure is kept in
// `scopeStatus`, which the caller never sees.
template <class Notice>
void tellTarget(zqerr_Status* scopeStatus, Notice&& notice) {
  zqerr::Status local;
  notice(&local);
  zqerr::adopt(scopeStatus, &local);
}

}  // namespace

Task::ChannelCreationScope::ChannelCreationScope(Task& task) : task_(task) {
  task_.lock();
  plugin = task_.plugin_;
  pluginContext = task_.pluginContext_;
  pluginTask = task_.pluginTask_;
  pluginName = task_.pluginName_;
  debuggable = task_.debuggable_;
  debugServer = task_.debugServer_;
  debugTarget = task_.debugTarget_;
}

Task::ChannelCreationScope::~ChannelCreationScope() {
  if (!committed_) {
    try {
      task_.rollBack(*this);
    } catch (...) {
      // The failure of the creation is what the caller sees; the rollback adds nothing.
    }
  }
  task_.unlock();
}

void Task::rollBack(ChannelCreationScope& scope) {
  for (const std::string& device : scope.addedDevices) deviceNames_.erase(device);
  const bool nameDiffered = pluginName_ != scope.pluginName;
  const bool taskDiffered = pluginTask_ != scope.pluginTask;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    std::swap(plugin_, scope.plugin);
    std::swap(pluginContext_, scope.pluginContext);
    std::swap(pluginTask_, scope.pluginTask);
    std::swap(pluginName_, scope.pluginName);
    std::swap(debuggable_, scope.debuggable);
  }
  // A server or target made in the attempt goes with the scope, after the unlock, or at the
  // task's last unlock: their destruction may call back into the task.
  if (scope.debugServer != debugServer_) {
    if (scope.debugServer) {
      std::lock_guard<zqplatform::SlimLock> state(stateLock_);
      std::swap(debugServer_, scope.debugServer);
    } else {
      deferredRelease_ |= kReleaseDebugServer;
    }
  }
  if (scope.debugTarget != debugTarget_) {
    if (scope.debugTarget) {
      std::lock_guard<zqplatform::SlimLock> state(stateLock_);
      std::swap(debugTarget_, scope.debugTarget);
    } else {
      deferredRelease_ |= kReleaseDebugTarget;
    }
  }
  // Only a target that was there before the attempt hears of the rollback.
  if (!debugTarget_ || (deferredRelease_ & kReleaseDebugTarget)) return;
  zqerr::Status scopeStatus;
  IDebugTarget& target = *debugTarget_;
  if (nameDiffered) tellTarget(&scopeStatus, [&](zqerr_Status* s) { target.setPluginName(pluginName_, s); });
  if (taskDiffered) tellTarget(&scopeStatus, [&](zqerr_Status* s) { target.setPluginTask(pluginTask_.get(), s); });
  if (!scope.addedChannels.empty()) {
    std::vector<std::string> names(scope.addedChannels.begin(), scope.addedChannels.end());
    tellTarget(&scopeStatus, [&](zqerr_Status* s) { target.removePhysicalChannels(zqgopher::StringArrayView(names), s); });
  }
  if (!scope.addedDevices.empty()) {
    std::vector<std::string> names(scope.addedDevices.begin(), scope.addedDevices.end());
    tellTarget(&scopeStatus, [&](zqerr_Status* s) { target.removeDevices(zqgopher::StringArrayView(names), s); });
  }
}

}  // namespace zqvorexRedir

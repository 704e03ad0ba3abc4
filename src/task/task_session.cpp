// The debug side of the frame (the control check, the uncommitted session), the commit of a
// debug session, and abortTask, which must overtake a call that holds the task's mutex.
#include <mutex>
#include <shared_mutex>

#include "status/error_sites.h"
#include "task/channel_creation_scope.h"

namespace zqvorexRedir {

namespace {
inline constexpr const char* kDebugPluginName = "zqvorexDebug";
}

void Task::checkControl(bool revoke, zqerr_Status* status) {
  if (targetFlags_.controlCheckPending.load() == 0) return;
  std::shared_ptr<IDebugTarget> target;
  {
    std::shared_lock<zqplatform::SlimLock> state(stateLock_);
    target = debugTarget_;
  }
  // What the target reports stands; the operation goes on regardless.
  if (target) target->revokeControl(revoke, status);
}

bool Task::refusedBySession(zqerr_Status* status) const {
  if (!debugAttributes_.isDebugSession() || debugAttributes_.isCommitted()) return false;
  ZQ_FAIL(status, kTaskDebugConfigurationNotCommitted);
  return true;
}

void Task::abortTaskOwn(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    checkControl(false, status);
    if (refusedBySession(status)) return;
    abortPluginTask(status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::abortPluginTask(zqerr_Status* status) {
  // Shared, and held while the plug-in aborts: a store of new plug-in parts waits for it.
  std::shared_lock<zqplatform::SlimLock> state(stateLock_);
  if (plugin_ && pluginTask_) plugin_->abortTask(pluginTask_.get(), status);
}

void Task::abortThroughCallbacks(ILockable& task, zqerr_Status* status) {
  static_cast<Task&>(task).abortPluginTask(status);
}

void Task::createDebugSessionTask(zqerr_Status* status) {
  if (!debugAttributes_.isDebugSession()) {
    ZQ_FAIL(status, kTaskSoftwareFault1463);
    return;
  }
  std::shared_ptr<Plugin> plugin = pluginManager_->getPlugin(kDebugPluginName, status);
  if (!plugin || !zqerr::isOpen(status)) return;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    plugin_ = plugin;
  }
  zqvorexPlugin_Task_undefined* session = plugin->createDebugSession(name_.c_str(), status);
  setPluginTask(holdPluginHandle<PluginDebugSessionDeleter>(session, plugin));
}

void Task::commitDebugSessionOwn(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    checkControl(true, status);
    // A failed commit takes back the session task it made.
    ChannelCreationScope scope(*this);
    if (!hasPluginParts()) createDebugSessionTask(status);
    if (!zqerr::isOpen(status) || !hasPluginParts()) return;
    debugAttributes_.applyDebugAttributes(plugin_.get(), pluginTask_.get(), status);
    plugin_->commitDebugSession(pluginTask_.get(), status);
    if (!zqerr::isOpen(status)) return;
    debugAttributes_.markCommitted();
    scope.commit();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

}  // namespace zqvorexRedir

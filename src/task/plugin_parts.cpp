#include "task/plugin_parts.h"

#include <mutex>
#include <shared_mutex>
#include <utility>

#include "status/error_sites.h"

namespace zqvorexRedir {

void PluginParts::setPlugin(std::shared_ptr<Plugin> plugin) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  plugin_ = std::move(plugin);
}

void PluginParts::setPlugin(std::shared_ptr<Plugin> plugin, std::string name) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  plugin_ = std::move(plugin);
  pluginName_ = std::move(name);
}

void PluginParts::choose(std::shared_ptr<Plugin> plugin, std::string name, bool debuggable) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  plugin_ = std::move(plugin);
  pluginName_ = std::move(name);
  debuggable_ = debuggable;
}

void PluginParts::setContext(PluginContextPtr context) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  pluginContext_ = std::move(context);
}

void PluginParts::setTask(PluginTaskPtr task) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  pluginTask_ = std::move(task);
}

void PluginParts::release() {
  setTask(nullptr);
  setContext(nullptr);
  setPlugin(nullptr);
}

void PluginParts::createContext(const std::string& contextName, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!plugin_) {
    ZQ_FAIL(status, kTaskSoftwareFault);
    return;
  }
  if (pluginContext_) return;
  zqvorexPlugin_Context_undefined* handle = plugin_->createContext(contextName.c_str(), status);
  setContext(holdPluginHandle<PluginContextDeleter>(handle, plugin_));
}

void PluginParts::createTask(const Text& taskName, const char* savedTaskName, const char* channelNames,
                             uint32_t taskKind, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!plugin_ || !pluginContext_) {
    ZQ_FAIL(status, kTaskSoftwareFault1668);
    return;
  }
  if (pluginTask_) return;
  zqvorexPlugin_Task_undefined* handle =
      plugin_->createTask(pluginContext_.get(), taskName.c_str(), savedTaskName, channelNames, taskKind, status);
  keepTask(handle);
}

void PluginParts::keepTask(zqvorexPlugin_Task_undefined* handle) {
  setTask(holdPluginHandle<PluginTaskDeleter>(handle, plugin_));
}

void PluginParts::swap(PluginSnapshot& other) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  std::swap(plugin_, other.plugin);
  std::swap(pluginContext_, other.context);
  std::swap(pluginTask_, other.task);
  std::swap(pluginName_, other.name);
  std::swap(debuggable_, other.debuggable);
}

void PluginParts::abort(zqerr_Status* status) {
  std::shared_lock<zqplatform::SlimLock> state(stateLock_);
  if (plugin_ && pluginTask_) plugin_->abortTask(pluginTask_.get(), status);
}

}  // namespace zqvorexRedir

// Global channels: saved channels that bring their devices along, so the selector is asked
// with the whole task, and the task learns its new devices and channels from the answer.
#include <mutex>
#include <vector>

#include "contexts/context.h"
#include "status/error_sites.h"
#include "task/channel_creation_scope.h"

namespace zqvorexRedir {

namespace {

void addNew(const NameSet& found, const NameSet& known, NameSet& added) {
  for (const std::string& name : found)
    if (!known.count(name)) added.insert(name);
}

}  // namespace

void Task::addChannelsToTaskOwn(const Text& channelNames, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    checkControl(true, status);
    ChannelCreationScope scope(*this);
    if (!debugAttributes_.isDebugSession()) {
      attachGlobalChannels(channelNames, scope, status);
      if (!zqerr::isOpen(status)) return;
    }
    if (refusedBySession(status)) return;
    if (hasPluginParts()) {
      plugin_->addChannelsToTask(pluginTask_.get(), channelNames.c_str(), status);
      syncDebugTarget(scope, status);
      if (zqerr::isOpen(status)) scope.commit();
      return;
    }
    if (isDeviceTask_)
      ZQ_FAIL(status, kTaskFunctionNotSupportedForDeviceTasks);
    else if (!channelNames.empty() || !deviceNames_.empty())
      ZQ_FAIL(status, kTaskSoftwareFault1844);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::attachGlobalChannels(const Text& channelNames, ChannelCreationScope& scope, zqerr_Status* status) {
  NameSet devices = deviceNames_;
  NameSet channels = physicalChannels_;
  std::string selected;
  bool debuggable = false;
  pluginSelector_->selectForTask(std::string(), channelNames, contextName(),
                                 &selected, &debuggable, &devices, &channels, status);
  if (!zqerr::isOpen(status)) return;
  addNew(devices, deviceNames_, scope.addedDevices);
  addNew(channels, physicalChannels_, scope.addedChannels);
  deviceNames_ = std::move(devices);
  physicalChannels_ = std::move(channels);
  std::shared_ptr<Plugin> plugin;
  if (!selected.empty()) plugin = pluginManager_->getPlugin(selected, status);
  if (!zqerr::isOpen(status)) return;
  const bool changed = plugin != plugin_;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    if (changed) plugin_ = plugin;
    pluginName_ = selected;
    debuggable_ = debuggable;
  }
  // No plug-in named: nothing to make; the caller tells whether that is an error.
  if (!plugin_) return;
  if (changed || !pluginContext_) createPluginContext(status);
  if (changed || !pluginTask_) createPluginTask("", "", status);
  if (debuggable_ && zqerr::isOpen(status)) {
    attachDebugTarget(status);
    tellTargetWholeTask(status);
  }
}

void Task::tellTargetWholeTask(zqerr_Status* status) {
  if (!debugTarget_ || !zqerr::isOpen(status)) return;
  debugTarget_->setPluginName(pluginName_, status);
  debugTarget_->setPluginTask(pluginTask_.get(), status);
  std::vector<std::string> devices(deviceNames_.begin(), deviceNames_.end());
  debugTarget_->addDevices(zqgopher::StringArrayView(devices), status);
  std::vector<std::string> channels(physicalChannels_.begin(), physicalChannels_.end());
  debugTarget_->addPhysicalChannels(zqgopher::StringArrayView(channels), status);
}

}  // namespace zqvorexRedir

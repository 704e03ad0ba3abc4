// Late binding: the devices of a channel creation decide the plug-in, which then gets its
// context and plug-in task; a debug target is told what changed.
#include <mutex>
#include <string_view>
#include <vector>

#include "contexts/context.h"
#include "status/error_sites.h"
#include "task/channel_creation_scope.h"
#include "text/list_parser.h"

namespace zqvorexRedir {

namespace {

std::vector<std::string> namesOf(const NameSet& set) { return {set.begin(), set.end()}; }

// Splits "device/channel" at the first "/"; false when a side is missing.
bool splitPhysicalChannel(std::string_view entry, NameSet& devices, NameSet& channels) {
  const size_t slash = entry.find('/');
  if (slash == std::string_view::npos || slash == 0 || slash + 1 == entry.size()) return false;
  devices.emplace(entry.substr(0, slash));
  channels.emplace(entry);
  return true;
}

}  // namespace

void Task::attachPhysicalChannels(const Text& list, ChannelCreationScope& scope, zqerr_Status* status) {
  if (taskKind_ == kTaskKindPlatform || fixedPlugin_) return;
  std::vector<std::string> entries;
  zqwombat::parseCommaList(list, &entries, status);
  if (!zqerr::isOpen(status)) return;
  NameSet devices;
  NameSet channels;
  for (std::string_view entry : entries) {
    if (entry.starts_with('/')) entry.remove_prefix(1);
    if (entry.empty()) {
      ZQ_FAIL(status, kTaskPhysicalChannelNotSpecified);
      return;
    }
    if (!splitPhysicalChannel(entry, devices, channels)) {
      ZQ_FAIL(status, kTaskChannelDeviceNotFound);
      return;
    }
  }
  NameSet newDevices;
  for (const std::string& device : devices)
    if (!deviceNames_.count(device)) newDevices.insert(device);
  if (deviceNames_.empty() && newDevices.empty()) {
    ZQ_FAIL(status, kTaskPhysicalChannelNotSpecified1611);
    return;
  }
  for (const std::string& channel : channels) {
    if (physicalChannels_.count(channel)) continue;
    scope.addedChannels.insert(channel);
    physicalChannels_.insert(channel);
  }
  if (newDevices.empty()) return;
  scope.addedDevices.insert(newDevices.begin(), newDevices.end());
  deviceNames_.insert(newDevices.begin(), newDevices.end());

  std::string selected;
  bool debuggable = false;
  pluginSelector_->selectForDevices(deviceNames_, contextName(), &selected,
                                    &debuggable, status);
  if (!zqerr::isOpen(status)) return;
  std::shared_ptr<Plugin> plugin;
  if (!selected.empty()) plugin = pluginManager_->getPlugin(selected, status);
  const bool changed = plugin != plugin_;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    pluginName_ = selected;
    debuggable_ = debuggable;
    if (changed) plugin_ = plugin;
  }
  if (!changed || !zqerr::isOpen(status)) return;
  createPluginContext(status);
  createPluginTask("", "", status);
}

void Task::createPluginContext(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!plugin_) {
    ZQ_FAIL(status, kTaskSoftwareFault);
    return;
  }
  if (pluginContext_) return;
  zqvorexPlugin_Context_undefined* handle = plugin_->createContext(contextName().c_str(), status);
  setPluginContext(holdPluginHandle<PluginContextDeleter>(handle, plugin_));
}

void Task::createPluginTask(const char* savedTaskName, const char* channelNames, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!plugin_ || !pluginContext_) {
    ZQ_FAIL(status, kTaskSoftwareFault1668);
    return;
  }
  if (pluginTask_) return;
  zqvorexPlugin_Task_undefined* handle =
      plugin_->createTask(pluginContext_.get(), name_.c_str(), savedTaskName, channelNames, taskKind_, status);
  setPluginTask(holdPluginHandle<PluginTaskDeleter>(handle, plugin_));
}

void Task::attachDebugTarget(zqerr_Status* status) {
  if (debugServer_ || debugTarget_ || !debugServerFactory_) return;
  std::shared_ptr<IDebugServer> server = debugServerFactory_->createDebugServer(2, std::string(), status);
  setDebugServer(server);
  if (server) setDebugTarget(server->createDebugTarget(name_, targetCallbacks_.boundary(), status));
  if (!zqerr::isOpen(status)) deferredRelease_ |= kReleaseDebugServer | kReleaseDebugTarget;
}

void Task::syncDebugTarget(const ChannelCreationScope& scope, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!debugServer_ && !debugTarget_ && debuggable_) attachDebugTarget(status);
  if (!debugServer_ || !debugTarget_) return;
  if (pluginName_ != scope.pluginName) debugTarget_->setPluginName(pluginName_, status);
  if (pluginTask_ != scope.pluginTask) debugTarget_->setPluginTask(pluginTask_.get(), status);
  if (!scope.addedDevices.empty()) {
    std::vector<std::string> names = namesOf(scope.addedDevices);
    debugTarget_->addDevices(zqgopher::StringArrayView(names), status);
  }
  if (!scope.addedChannels.empty()) {
    std::vector<std::string> names = namesOf(scope.addedChannels);
    debugTarget_->addPhysicalChannels(zqgopher::StringArrayView(names), status);
  }
}

}  // namespace zqvorexRedir

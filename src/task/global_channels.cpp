// Global channels: saved channels that bring their devices along, so the selector is asked
// with the whole task, and the task learns its new devices and channels from the answer.
#include "status/error_sites.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

void addNew(const NameSet& found, const NameSet& known, NameSet& added) {
  for (const std::string& name : found)
    if (!known.count(name)) added.insert(name);
}

}  // namespace

void Task::addChannelsToTaskOwn(const Text& channelNames, zqerr_Status* status) {
  runChannelCreation<void>(
      status,
      [&](PluginBinder& binding, ChannelCreationScope& scope) {
        binding.attachGlobalChannels(channelNames, scope, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.addChannelsToTask(task, channelNames.c_str(), status);
      },
      [&] {
        if (identity_.isDeviceTask)
          ZQ_FAIL(status, kTaskFunctionNotSupportedForDeviceTasks);
        else if (!channelNames.empty() || !names_.devices.empty())
          ZQ_FAIL(status, kTaskSoftwareFault1844);
      });
}

void PluginBinder::attachGlobalChannels(const Text& channelNames, ChannelCreationScope& scope, zqerr_Status* status) {
  TaskNameSets found = names_;
  std::string selected;
  bool debuggable = false;
  identity_.pluginSelector->selectForTask(std::string(), channelNames, contextName(), &selected, &debuggable,
                                          &found.devices, &found.channels, status);
  if (!zqerr::isOpen(status)) return;
  addNew(found.devices, names_.devices, scope.addedDevices);
  addNew(found.channels, names_.channels, scope.addedChannels);
  names_ = std::move(found);
  std::shared_ptr<Plugin> plugin;
  if (!selected.empty()) plugin = identity_.pluginManager->getPlugin(selected, status);
  if (!zqerr::isOpen(status)) return;
  const bool changed = plugin != plugin_.plugin();
  plugin_.choose(std::move(plugin), std::move(selected), debuggable);
  // No plug-in named: nothing to make; the caller tells whether that is an error.
  if (!plugin_.plugin()) return;
  if (changed || !plugin_.context()) plugin_.createContext(contextName(), status);
  if (changed || !plugin_.task()) createPluginTask("", "", status);
  if (plugin_.debuggable() && zqerr::isOpen(status)) announceToTarget(status);
}

}  // namespace zqvorexRedir

#include "task/plugin_binder.h"

#include <string_view>
#include <vector>

#include "contexts/context.h"
#include "status/error_sites.h"
#include "text/list_parser.h"

namespace zqvorexRedir {

namespace {

// Splits "device/channel" at the first "/"; false when a side is missing.
bool splitPhysicalChannel(std::string_view entry, NameSet& devices, NameSet& channels) {
  const size_t slash = entry.find('/');
  if (slash == std::string_view::npos || slash == 0 || slash + 1 == entry.size()) return false;
  devices.emplace(entry.substr(0, slash));
  channels.emplace(entry);
  return true;
}

// The devices and whole names of a physical channel list; false, with the status set, at the
// first entry that names no channel of a device.
bool parsePhysicalChannels(const Text& list, NameSet& devices, NameSet& channels, zqerr_Status* status) {
  std::vector<std::string> entries;
  zqwombat::parseCommaList(list, &entries, status);
  if (!zqerr::isOpen(status)) return false;
  for (std::string_view entry : entries) {
    if (entry.starts_with('/')) entry.remove_prefix(1);
    if (entry.empty()) {
      ZQ_FAIL(status, kTaskPhysicalChannelNotSpecified);
      return false;
    }
    if (!splitPhysicalChannel(entry, devices, channels)) {
      ZQ_FAIL(status, kTaskChannelDeviceNotFound);
      return false;
    }
  }
  return true;
}

// The plug-in of that name from the manager; an empty name stands for none.
std::shared_ptr<Plugin> pluginNamed(IPluginManager& manager, const std::string& name, zqerr_Status* status) {
  if (name.empty()) return nullptr;
  return manager.getPlugin(name, status);
}

}  // namespace

std::string PluginBinder::contextName() const {
  return identity_.context ? identity_.context->getName() : std::string();
}

void PluginBinder::attachPhysicalChannels(const Text& list, ChannelCreationScope& scope, zqerr_Status* status) {
  if (identity_.taskKind == kTaskKindPlatform || plugin_.fixed()) return;
  NameSet devices;
  NameSet channels;
  if (!parsePhysicalChannels(list, devices, channels, status)) return;
  NameSet newDevices;
  for (const std::string& device : devices)
    if (!names_.devices.count(device)) newDevices.insert(device);
  if (names_.devices.empty() && newDevices.empty()) {
    ZQ_FAIL(status, kTaskPhysicalChannelNotSpecified1611);
    return;
  }
  for (const std::string& channel : channels) {
    if (names_.channels.count(channel)) continue;
    scope.addedChannels.insert(channel);
    names_.channels.insert(channel);
  }
  // Known devices only: the plug-in stays as it is.
  if (newDevices.empty()) return;
  scope.addedDevices.insert(newDevices.begin(), newDevices.end());
  names_.devices.insert(newDevices.begin(), newDevices.end());

  std::string selected;
  bool debuggable = false;
  identity_.pluginSelector->selectForDevices(names_.devices, contextName(), &selected, &debuggable, status);
  if (!zqerr::isOpen(status)) return;
  std::shared_ptr<Plugin> plugin = pluginNamed(*identity_.pluginManager, selected, status);
  const bool changed = plugin != plugin_.plugin();
  plugin_.choose(std::move(plugin), std::move(selected), debuggable);
  if (!changed || !zqerr::isOpen(status)) return;
  plugin_.createContext(contextName(), status);
  createPluginTask("", "", status);
}

void PluginBinder::syncDebugTarget(const ChannelCreationScope& scope, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (debug_.empty() && plugin_.debuggable()) debug_.attach(identity_.debugServerFactory.get(), identity_.name, status);
  debug_.tellCreated(plugin_, scope.changes(), status);
}

void PluginBinder::bindSelection(Selection& selection, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  names_.devices = std::move(selection.devices);
  names_.channels = std::move(selection.channels);
  std::shared_ptr<Plugin> plugin = pluginNamed(*identity_.pluginManager, selection.pluginName, status);
  if (!zqerr::isOpen(status)) return;
  plugin_.choose(std::move(plugin), std::move(selection.pluginName), selection.debuggable);
  plugin_.createContext(contextName(), status);
}

void PluginBinder::bindFixedPlugin(const char* pluginName, zqerr_Status* status) {
  Selection selection;
  selection.pluginName = pluginName;
  bindSelection(selection, status);
}

void PluginBinder::createPluginTask(const char* savedTaskName, const char* channelNames, zqerr_Status* status) {
  plugin_.createTask(identity_.name, savedTaskName, channelNames, identity_.taskKind, status);
}

void PluginBinder::announceToTarget(zqerr_Status* status) {
  debug_.attach(identity_.debugServerFactory.get(), identity_.name, status);
  debug_.tellWholeTask(plugin_, names_, status);
}

}  // namespace zqvorexRedir

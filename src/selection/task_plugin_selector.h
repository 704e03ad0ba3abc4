// The plug-in selection over the storage library: every way of naming what a task uses is
// reduced to device names, and each device's plug-in comes from its device object and the
// capability data of its class. It reads, never writes, and keeps nothing between calls.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "selection/itoggle_reader.h"
#include "selection/plugin_selector.h"
#include "storage/object_id_list.h"
#include "storage/storage_binding.h"

namespace zqvorexRedir {

class TaskPluginSelector final : public IPluginSelector {
 public:
  // `runtimeToggles` may be null: the toggle "DebugSession" then has its default, true.
  TaskPluginSelector(const zqvorexStorageCpp::StorageBindings& bindings,
                     std::shared_ptr<IToggleReader> runtimeToggles);
  TaskPluginSelector(const TaskPluginSelector&) = delete;
  TaskPluginSelector& operator=(const TaskPluginSelector&) = delete;

  void selectForDevices(const NameSet& devices, const std::string& contextName, std::string* pluginName,
                        bool* debuggable, zqerr_Status* status) override;
  bool selectForNames(const std::string& names, const std::string& contextName, std::string* pluginName,
                      bool* debuggable, NameSet* devices, NameSet* channels, zqerr_Status* status) override;
  void selectForTask(const std::string& savedTaskName, const std::string& channelNames,
                     const std::string& contextName, std::string* pluginName, bool* debuggable,
                     NameSet* devices, NameSet* channels, zqerr_Status* status) override;
  void selectForConfigString(uint32_t format, const std::string& configString, std::string* pluginName,
                             bool* debuggable, NameSet* devices, NameSet* channels,
                             zqerr_Status* status) override;

  // The plug-in of `devices`, read under `lock` (a read lock of the storage). Devices go in
  // ascending order; the first that names a plug-in sets it, and a later one may only agree.
  // Devices that name none leave `pluginName` empty, without failure.
  void pluginFromDevices(uint64_t lock, const NameSet& devices, const std::string& contextName,
                         std::string* pluginName, bool* debuggable, zqerr_Status* status) const;
  // The device object of `device`. An unknown device gives kErrorInvalidDeviceID with the
  // name and, when there are any, the configured devices as suggestions.
  void findDevice(uint64_t lock, const std::string& device, zqvorexStorageCpp::ObjectId* objectId,
                  zqerr_Status* status) const;
  // The endpoint devices and physical channels of the named channels, read under a
  // specification token: a task's own channel first, then a global channel of that name.
  void resolveChannels(uint64_t specToken, const std::string& taskName,
                       const std::vector<std::string>& channelNames, NameSet* devices, NameSet* channels,
                       zqerr_Status* status) const;

 private:
  bool debugSessionsEnabled() const;
  bool readFlag(uint64_t lock, const zqvorexStorageCpp::ObjectId& device, uint32_t property,
                zqerr_Status* status) const;
  std::string devicePlugin(uint64_t lock, const zqvorexStorageCpp::ObjectId& device,
                           const std::string& contextName, bool debugEnabled, bool* debuggable,
                           zqerr_Status* status) const;
  std::vector<std::string> configuredDeviceNames(uint64_t lock) const;
  std::vector<std::string> objectNames(uint64_t lock, uint32_t storageClass, zqerr_Status* status) const;
  std::vector<std::string> savedTaskChannels(uint64_t specToken, const std::string& taskName, bool* found,
                                             zqerr_Status* status) const;
  // The channels of a saved task; kErrorTaskNotInDataNeighborhood, naming it, when there is none.
  void resolveSavedTask(uint64_t specToken, const std::string& taskName, NameSet* devices, NameSet* channels,
                        zqerr_Status* status) const;
  void resolveChannel(uint64_t specToken, const std::string& taskName, const std::string& channel,
                      NameSet* devices, NameSet* channels, zqerr_Status* status) const;
  // Opens a read section on `session` and runs pluginFromDevices under it.
  void pluginFromSession(uint64_t session, const NameSet& devices, const std::string& contextName,
                         std::string* pluginName, bool* debuggable, zqerr_Status* status) const;

  std::shared_ptr<zqvorexStorageCpp::Capabilities> capabilities_;
  std::shared_ptr<zqvorexStorageCpp::Storage> storage_;
  std::shared_ptr<zqvorexStorageCpp::StorageSpec> storageSpec_;
  std::shared_ptr<zqvorexStorageCpp::ChannelSpecification> channelSpecification_;
  std::shared_ptr<zqvorexStorageCpp::ChannelTaskSpecification> channelTaskSpecification_;
  std::shared_ptr<IToggleReader> runtimeToggles_;
};

}  // namespace zqvorexRedir

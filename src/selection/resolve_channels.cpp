// Saved channels to devices and physical channels, and a saved task to its channel list.
#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "selection/task_plugin_selector.h"
#include "status/report_writer.h"
#include "status/error_sites.h"
#include "storage/auto_specification.h"

namespace zqvorexRedir {

using zqvorexStorageCpp::AutoSpecification;
using zqvorexStorageCpp::SpecificationKind;

void TaskPluginSelector::resolveChannel(uint64_t specToken, const std::string& taskName,
                                        const std::string& channel, NameSet* devices, NameSet* channels,
                                        zqerr_Status* status) const {
  uint64_t found = storageSpec_->getChannelSpecificationByTaskAndChan(specToken, taskName.c_str(),
                                                                      channel.c_str(), status);
  // Not one of the task's own channels, or no task: a global channel of that name. The storage
  // finds global channels by name alone, so the global lookup also serves an empty task name.
  if (found == 0) found = storageSpec_->getChannelSpecificationByName(specToken, channel.c_str(), status);
  AutoSpecification definition(storageSpec_, found, SpecificationKind::kChannel, status);
  if (definition.get() == 0) {
    ZQ_FAIL(status, kTaskpluginselectorVirtualChanDoesNotExist);
    // Takes only a status that nothing has set yet.
    ZQ_FAIL(status, kTaskpluginselectorGrafoInvalidTaskOrChans);
    return;
  }
  std::string device;
  zqgopher::StringAdapter deviceOut(device);
  channelSpecification_->ChannelSpecification_getEndpointDeviceIdentifier(definition.get(), deviceOut.boundary(),
                                                                          status);
  // A channel without a device adds nothing; a task of only such channels has no device.
  if (zqerr::isOpen(status) && !device.empty()) devices->insert(device);
  std::vector<std::string> physical;
  zqgopher::ItemAdderAdapter<std::string> physicalOut(physical);
  channelSpecification_->ChannelSpecification_getPhysicalChannelNameList(definition.get(), physicalOut.boundary(),
                                                                         status);
  if (zqerr::isOpen(status)) channels->insert(physical.begin(), physical.end());
}

void TaskPluginSelector::resolveChannels(uint64_t specToken, const std::string& taskName,
                                         const std::vector<std::string>& channelNames, NameSet* devices,
                                         NameSet* channels, zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return;
  if (!storageSpec_ || !channelSpecification_) {
    ZQ_FAIL(status, kTaskpluginselectorBadPointer300);
    return;
  }
  for (const std::string& channel : channelNames) {
    resolveChannel(specToken, taskName, channel, devices, channels, status);
    if (!zqerr::isOpen(status)) return;
  }
}

// The channels of a saved task, in its order. A channel that uses a global channel is looked
// up under the global channel's name.
std::vector<std::string> TaskPluginSelector::savedTaskChannels(uint64_t specToken,
                                                               const std::string& taskName, bool* found,
                                                               zqerr_Status* status) const {
  *found = false;
  if (!zqerr::isOpen(status)) return {};
  if (!storageSpec_ || !channelTaskSpecification_) {
    ZQ_FAIL(status, kTaskpluginselectorBadPointer270);
    return {};
  }
  AutoSpecification task(storageSpec_,
                         storageSpec_->getTaskSpecification(specToken, taskName.c_str(), status),
                         SpecificationKind::kTask, status);
  if (task.get() == 0) return {};
  *found = true;
  std::vector<std::string> names;
  std::vector<std::string> globals;
  zqgopher::ItemAdderAdapter<std::string> namesOut(names);
  zqgopher::ItemAdderAdapter<std::string> globalsOut(globals);
  channelTaskSpecification_->ChannelTaskSpecification_getChannelDataList(task.get(), namesOut.boundary(),
                                                                         globalsOut.boundary(), status);
  for (size_t i = 0; i < names.size() && i < globals.size(); ++i) {
    if (!globals[i].empty()) names[i] = globals[i];
  }
  return names;
}

void TaskPluginSelector::resolveSavedTask(uint64_t specToken, const std::string& taskName, NameSet* devices,
                                          NameSet* channels, zqerr_Status* status) const {
  bool found = false;
  const std::vector<std::string> taskChannels = savedTaskChannels(specToken, taskName, &found, status);
  if (!zqerr::isOpen(status)) return;
  if (!found) {
    if (ZQ_FAIL(status, kTaskpluginselectorTaskNotInDataNeighborhood)) {
      zqerr::addItem(zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex),
                     zqerr::usage::kUsageTypeInvalidTaskName, taskName);
    }
    return;
  }
  resolveChannels(specToken, taskName, taskChannels, devices, channels, status);
}

}  // namespace zqvorexRedir

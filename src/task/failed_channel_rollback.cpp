// Taking back channels whose creation failed in the plug-in: the plug-in drops them, then the
// task learns its devices and physical channels anew from the plug-in, and lets the plug-in
// go when no device is left.
#include <vector>

#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "task/task_frame.h"
#include "text/list_parser.h"

namespace zqvorexRedir {

namespace {

inline constexpr int32_t kTaskDevicesId = 0x230E;
inline constexpr int32_t kTaskChannelsId = 0x1273;
inline constexpr int32_t kPhysicalChanNameId = 0x18F5;

}  // namespace

void Task::rollbackFailedChannelCreationsOwn(const Text& channelNames, zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.rollbackFailedChannelCreations(task, channelNames.c_str(), status);
        if (zqerr::isOpen(status)) rebuildNameSets(status);
      },
      [&] { failNoDevice(status); });
}

// Reads the task's own attributes through its operations, with the mutex held once more.
void Task::rebuildNameSets(zqerr_Status* status) {
  std::vector<std::string> devices;
  zqgopher::ItemAdderAdapter<std::string> deviceList(devices);
  getTaskAttributeStringVtr(kTaskDevicesId, deviceList.boundary(), status);
  names_.devices = NameSet(devices.begin(), devices.end());
  if (names_.devices.empty()) plugin_.release();
  names_.channels = plugin_.bound() ? readPhysicalChannels(status) : NameSet();
  // A target stays only with a plug-in task whose devices allow it.
  debug_.tellNameSets(names_, plugin_.task() && plugin_.debuggable(), status);
}

NameSet Task::readPhysicalChannels(zqerr_Status* status) {
  NameSet physical;
  std::vector<std::string> channels;
  zqgopher::ItemAdderAdapter<std::string> channelList(channels);
  getTaskAttributeStringVtr(kTaskChannelsId, channelList.boundary(), status);
  for (const std::string& channel : channels) {
    std::string text;
    zqgopher::StringAdapter value(text);
    getChannelAttributeString(zqgopher::StringArrayView(std::vector<std::string>{channel}), kPhysicalChanNameId,
                              value.boundary(), status);
    std::vector<std::string> names;
    zqwombat::parseCommaList(text, &names, status);
    physical.insert(names.begin(), names.end());
  }
  return physical;
}

}  // namespace zqvorexRedir

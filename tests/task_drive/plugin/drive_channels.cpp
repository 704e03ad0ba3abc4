// Channels of zqtestDrive and the attributes that list them: the task's devices and channels.
#include <set>

#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

namespace {

constexpr int32_t kTaskDevicesId = 0x230E;
constexpr int32_t kTaskChannelsId = 0x1273;
constexpr int32_t kUnsupportedAttributeCode = -200452;

std::vector<std::string> splitList(const char* text) {
  std::vector<std::string> entries;
  std::string current;
  auto finish = [&] {
    const size_t first = current.find_first_not_of(' ');
    const size_t last = current.find_last_not_of(' ');
    std::string entry = first == std::string::npos ? std::string() : current.substr(first, last - first + 1);
    if (!entry.empty() && entry[0] == '/') entry.erase(0, 1);
    if (!entry.empty()) entries.push_back(entry);
    current.clear();
  };
  for (const char* at = text ? text : ""; *at; ++at) {
    if (*at == ',') {
      finish();
    } else {
      current += *at;
    }
  }
  finish();
  return entries;
}

std::string channelPart(const std::string& physical) {
  const size_t slash = physical.find('/');
  return slash == std::string::npos ? physical : physical.substr(slash + 1);
}

void addStrings(zqgopher_IItemAdder* adder, const std::vector<std::string>& items, zqerr_Status* status) {
  adder->table.strings->clear(adder, status);
  for (const std::string& item : items) adder->table.strings->add(adder, item.c_str(), status);
}

}  // namespace

extern "C" {

ZQ_NATIVE_EXPORT void zqtestDrive_createAIVoltageChannel(
    zqvorexPlugin_Task_undefined* task, const char* physicalChannel, const char* nameToAssign, int32_t,
    double, double, int32_t, const char*, zqgopher_IItemAdder* createdChannels, zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  const std::vector<std::string> entries = splitList(physicalChannel);
  const std::vector<std::string> names = splitList(nameToAssign);
  std::lock_guard<std::mutex> guard(record.mutex);
  for (size_t i = 0; i < entries.size(); ++i) {
    // A device that fails half way keeps what it made before.
    if (channelPart(entries[i]) == "fail") {
      fail(status, zqtestDrive_kChannelFailCode);
      return;
    }
    Channel channel{i < names.size() ? names[i] : entries[i], entries[i]};
    record.channels.push_back(channel);
    count(zqtestDrive_channelsCreated);
    if (createdChannels) createdChannels->table.strings->add(createdChannels, channel.name.c_str(), status);
  }
}

// Global channels of the store: each lies on Dev1, as the tests' store defines them.
ZQ_NATIVE_EXPORT void zqtestDrive_addChannelsToTask(zqvorexPlugin_Task_undefined* task, const char* channelNames,
                                                    zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  std::lock_guard<std::mutex> guard(record.mutex);
  for (const std::string& name : splitList(channelNames)) {
    record.channels.push_back(Channel{name, "Dev1/" + name});
    count(zqtestDrive_channelsCreated);
  }
}

ZQ_NATIVE_EXPORT void zqtestDrive_getTaskAttributeStringVtr(zqvorexPlugin_Task_undefined* task,
                                                            int32_t attributeId, zqgopher_IItemAdder* value,
                                                            zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  std::vector<std::string> items;
  {
    std::lock_guard<std::mutex> guard(record.mutex);
    if (attributeId == kTaskDevicesId) {
      std::set<std::string> devices;
      for (const Channel& channel : record.channels)
        devices.insert(channel.physical.substr(0, channel.physical.find('/')));
      items.assign(devices.begin(), devices.end());
    } else if (attributeId == kTaskChannelsId) {
      for (const Channel& channel : record.channels) items.push_back(channel.name);
    } else {
      fail(status, kUnsupportedAttributeCode);
      return;
    }
  }
  addStrings(value, items, status);
}

ZQ_NATIVE_EXPORT int32_t zqtestDrive_getTaskAttributeI32(zqvorexPlugin_Task_undefined* task,
                                                         int32_t attributeId, zqerr_Status* status) {
  if (!isOpen(status)) return 0;
  DriveTask& record = *asTask(task);
  std::lock_guard<std::mutex> guard(record.mutex);
  auto found = record.i32Values.find(attributeId);
  return found == record.i32Values.end() ? 0 : found->second;
}

ZQ_NATIVE_EXPORT void zqtestDrive_setTaskAttributeI32(zqvorexPlugin_Task_undefined* task, int32_t attributeId,
                                                      int32_t value, zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  std::lock_guard<std::mutex> guard(record.mutex);
  record.i32Values[attributeId] = value;
  count(zqtestDrive_attributeSets);
}

}  // extern "C"

ZQTEST_DRIVE_OPERATION(createAIVoltageChannel);
ZQTEST_DRIVE_OPERATION(addChannelsToTask);
ZQTEST_DRIVE_OPERATION(getTaskAttributeStringVtr);
ZQTEST_DRIVE_OPERATION(getTaskAttributeI32);
ZQTEST_DRIVE_OPERATION(setTaskAttributeI32);

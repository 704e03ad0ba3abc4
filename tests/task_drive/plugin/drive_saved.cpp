// Tasks of zqtestDrive as INI text (docs/task-ini-format.md) and back: the text names the task
// and lists each channel in a section of its own, which is all the plug-in keeps of a channel.
#include <sstream>
#include <string>

#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

namespace {

constexpr int32_t kVoltageChannelType = 10322;

std::string trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return std::string();
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string textOf(DriveTask& task, const std::string& name) {
  std::lock_guard<std::mutex> guard(task.mutex);
  std::string list;
  for (const Channel& channel : task.channels) list += (list.empty() ? "" : ", ") + channel.name;
  std::string text = "[task " + name + "]\nchannels = " + list + "\n";
  for (const Channel& channel : task.channels)
    text += "\n[channel " + channel.name + "]\ntask = " + name + "\ntype = " +
            std::to_string(kVoltageChannelType) + "\ndevice = " + channel.physical.substr(0, channel.physical.find('/')) +
            "\nphysical_channels = " + channel.physical + "\n";
  return text;
}

// The channels of the text's sections: their names and first physical channel.
std::vector<Channel> channelsOf(const std::string& text) {
  std::vector<Channel> channels;
  std::istringstream lines(text);
  std::string line;
  bool inChannel = false;
  while (std::getline(lines, line)) {
    line = trimmed(line);
    if (!line.empty() && line.front() == '[') {
      inChannel = line.rfind("[channel ", 0) == 0 && line.back() == ']';
      if (inChannel) channels.push_back(Channel{trimmed(line.substr(9, line.size() - 10)), ""});
    } else if (inChannel && line.rfind("physical_channels", 0) == 0) {
      const std::string value = trimmed(line.substr(line.find('=') + 1));
      channels.back().physical = value.substr(0, value.find(','));
    }
  }
  return channels;
}

}  // namespace

extern "C" {

ZQ_NATIVE_EXPORT void zqtestDrive_saveTaskToString(zqvorexPlugin_Task_undefined* task, const char* saveAs,
                                                   const char* taskName, bool, zqgopher_IString* text,
                                                   zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  std::string name = taskName && *taskName ? taskName : saveAs && *saveAs ? saveAs : "";
  if (name.empty()) name = record.name;
  const std::string ini = textOf(record, name);
  text->table->assign(text, ini.data(), ini.size(), status);
}

ZQ_NATIVE_EXPORT zqvorexPlugin_Task_undefined* zqtestDrive_createTaskFromString(
    zqvorexPlugin_Context_undefined* context, const char* taskName, uint32_t, const char* configString,
    zqerr_Status* status) {
  if (!isOpen(status)) return nullptr;
  auto* task = new DriveTask;
  task->name = taskName ? taskName : "";
  task->context = reinterpret_cast<DriveContext*>(context);
  task->channels = channelsOf(configString ? configString : "");
  count(zqtestDrive_tasksLive);
  count(zqtestDrive_channelsCreated, static_cast<int64_t>(task->channels.size()));
  enterTask(task);
  writeLog("createTaskFromString " + task->name);
  return reinterpret_cast<zqvorexPlugin_Task_undefined*>(task);
}

}  // extern "C"

ZQTEST_DRIVE_OPERATION(saveTaskToString);
ZQTEST_DRIVE_OPERATION(createTaskFromString);

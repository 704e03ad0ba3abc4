// What a debug target hears of its task: the plug-in, the plug-in task, the devices and the
// physical channels as they change, and whether the task logs.
#include <string>
#include <vector>

#include "task/debug_link.h"

namespace zqvorexRedir {

namespace {

// Runs one notice with a status of its own; the first failure is kept in `quiet`, which the
// caller never sees.
template <class Notice>
void tellQuietly(zqerr_Status* quiet, Notice&& notice) {
  zqerr::Status local;
  notice(&local);
  zqerr::adopt(quiet, &local);
}

}  // namespace

void DebugLink::tellWholeTask(const PluginParts& plugin, const TaskNameSets& names, zqerr_Status* status) {
  if (!target_ || !zqerr::isOpen(status)) return;
  target_->setPluginName(plugin.name(), status);
  target_->setPluginTask(plugin.task(), status);
  std::vector<std::string> devices = namesOf(names.devices);
  target_->addDevices(zqgopher::StringArrayView(devices), status);
  std::vector<std::string> channels = namesOf(names.channels);
  target_->addPhysicalChannels(zqgopher::StringArrayView(channels), status);
}

void DebugLink::tellCreated(const PluginParts& plugin, const CreationChanges& changes, zqerr_Status* status) {
  if (!server_ || !target_) return;
  if (changes.pluginNameChanged) target_->setPluginName(plugin.name(), status);
  if (changes.pluginTaskChanged) target_->setPluginTask(plugin.task(), status);
  if (!changes.devices.empty()) {
    std::vector<std::string> names = namesOf(changes.devices);
    target_->addDevices(zqgopher::StringArrayView(names), status);
  }
  if (!changes.channels.empty()) {
    std::vector<std::string> names = namesOf(changes.channels);
    target_->addPhysicalChannels(zqgopher::StringArrayView(names), status);
  }
}

void DebugLink::tellRolledBack(const PluginParts& plugin, const CreationChanges& changes) {
  // Only a target that was there before the attempt hears of the rollback.
  if (!target_ || lock_.releasePending(kReleaseDebugTarget)) return;
  zqerr::Status quiet;
  IDebugTarget& target = *target_;
  if (changes.pluginNameChanged) tellQuietly(&quiet, [&](zqerr_Status* s) { target.setPluginName(plugin.name(), s); });
  if (changes.pluginTaskChanged) tellQuietly(&quiet, [&](zqerr_Status* s) { target.setPluginTask(plugin.task(), s); });
  if (!changes.channels.empty()) {
    std::vector<std::string> names = namesOf(changes.channels);
    tellQuietly(&quiet, [&](zqerr_Status* s) { target.removePhysicalChannels(zqgopher::StringArrayView(names), s); });
  }
  if (!changes.devices.empty()) {
    std::vector<std::string> names = namesOf(changes.devices);
    tellQuietly(&quiet, [&](zqerr_Status* s) { target.removeDevices(zqgopher::StringArrayView(names), s); });
  }
}

void DebugLink::tellNameSets(const TaskNameSets& names, bool targetStays, zqerr_Status* status) {
  if (!target_) return;
  if (!targetStays) lock_.requestRelease(kReleaseDebugServer | kReleaseDebugTarget);
  std::vector<std::string> devices = namesOf(names.devices);
  target_->setDevices(zqgopher::StringArrayView(devices), status);
  std::vector<std::string> channels = namesOf(names.channels);
  target_->setPhysicalChannels(zqgopher::StringArrayView(channels), status);
}

void DebugLink::noteLogging(int32_t mode, zqerr_Status* status) {
  if (mode == kLoggingOff && loggingActive_) {
    target_->setLoggingEnabled(false, status);
    loggingActive_ = false;
  } else if ((mode == kLoggingLog || mode == kLoggingLogAndRead) && !loggingActive_) {
    target_->setLoggingEnabled(true, status);
    loggingActive_ = true;
  }
}

void DebugLink::takeBackLogging(bool before, zqerr_Status* status) {
  loggingActive_ = before;
  zqerr::Status local;
  target_->setLoggingEnabled(before, &local);
  zqerr::adopt(status, &local);
}

}  // namespace zqvorexRedir

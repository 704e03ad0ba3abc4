#include "task/channel_creation_scope.h"

namespace zqvorexRedir {

ChannelCreationScope::ChannelCreationScope(ILockable& task, PluginParts& plugin, TaskNameSets& names,
                                           DebugLink& debug)
    : task_(task), plugin_(plugin), names_(names), debug_(debug) {
  task_.lock();
  pluginBefore_ = plugin_.snapshot();
  debugBefore_ = debug_.snapshot();
}

ChannelCreationScope::~ChannelCreationScope() {
  if (!committed_) {
    try {
      rollBack();
    } catch (...) {
      // The failure of the creation is what the caller sees; the rollback adds nothing.
    }
  }
  task_.unlock();
}

CreationChanges ChannelCreationScope::changes() const {
  return {plugin_.name() != pluginBefore_.name, plugin_.task() != pluginBefore_.task.get(), addedDevices,
          addedChannels};
}

// The task's new physical channels stay: rollbackFailedChannelCreations rebuilds them.
void ChannelCreationScope::rollBack() {
  for (const std::string& device : addedDevices) names_.devices.erase(device);
  const CreationChanges changed = changes();
  plugin_.swap(pluginBefore_);
  // A server or target made in the attempt goes with the scope, after the unlock, or at the
  // task's last unlock: their destruction may call back into the task.
  debug_.restore(debugBefore_);
  debug_.tellRolledBack(plugin_, changed);
}

}  // namespace zqvorexRedir

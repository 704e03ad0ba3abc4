// The scope of one channel creation: holds the task's lock, remembers the plug-in parts as
// they were, and unless committed puts them back when it closes, so that a failed creation
// leaves no plug-in, context or device behind.
#pragma once

#include "status/exceptions.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

class Task::ChannelCreationScope {
 public:
  explicit ChannelCreationScope(Task& task);
  ~ChannelCreationScope();
  ChannelCreationScope(const ChannelCreationScope&) = delete;
  ChannelCreationScope& operator=(const ChannelCreationScope&) = delete;

  void commit() { committed_ = true; }

  NameSet addedDevices;
  NameSet addedChannels;
  // The snapshot; after a rollback it holds what the failed attempt made, which goes with the
  // scope: the plug-in task first, then its context, then the plug-in.
  std::shared_ptr<Plugin> plugin;
  PluginContextPtr pluginContext;
  PluginTaskPtr pluginTask;
  std::string pluginName;
  bool debuggable;
  std::shared_ptr<IDebugServer> debugServer;
  std::shared_ptr<IDebugTarget> debugTarget;

 private:
  Task& task_;
  bool committed_ = false;
};

template <class R, class Call>
R Task::runChannelCreation(zqerr_Status* status, const Text& physicalChannels, Call&& call) {
  if (!zqerr::isOpen(status)) return R();
  try {
    checkControl(true, status);
    ChannelCreationScope scope(*this);
    if (!debugAttributes_.isDebugSession()) {
      attachPhysicalChannels(physicalChannels, scope, status);
      if (!zqerr::isOpen(status)) return R();
    }
    if (refusedBySession(status)) return R();
    if (!hasPluginParts()) {
      failNoDevice(status);
      return R();
    }
    call(*plugin_, pluginTask_.get());
    syncDebugTarget(scope, status);
    if (zqerr::isOpen(status)) scope.commit();
    return R();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

}  // namespace zqvorexRedir

// The scope of one channel creation: holds the task's lock, remembers the plug-in parts and the
// debug objects as they were, and unless committed puts them back when it closes, so that a
// failed creation leaves no plug-in, context or device behind.
#pragma once

#include "task/debug_link.h"
#include "task/itask.h"
#include "task/plugin_parts.h"
#include "task/task_name_sets.h"

namespace zqvorexRedir {

class ChannelCreationScope {
 public:
  // Locks `task`, whose parts the others are.
  ChannelCreationScope(ILockable& task, PluginParts& plugin, TaskNameSets& names, DebugLink& debug);
  ~ChannelCreationScope();
  ChannelCreationScope(const ChannelCreationScope&) = delete;
  ChannelCreationScope& operator=(const ChannelCreationScope&) = delete;

  void commit() { committed_ = true; }
  // What the creation has changed since the scope opened.
  CreationChanges changes() const;

  // The names the creation added to the task's sets.
  NameSet addedDevices;
  NameSet addedChannels;

 private:
  void rollBack();

  ILockable& task_;
  PluginParts& plugin_;
  TaskNameSets& names_;
  DebugLink& debug_;
  // The snapshot. After a rollback it holds what the failed attempt made, which goes with the
  // scope once the task is unlocked: the debug objects, then the plug-in task, its context and
  // the plug-in.
  PluginSnapshot pluginBefore_;
  DebugSnapshot debugBefore_;
  bool committed_ = false;
};

}  // namespace zqvorexRedir

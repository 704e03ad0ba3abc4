// Binding a task to its plug-in, late: the selector's answer for the task's devices, channels or
// saved task names the plug-in, the manager gives it, and the plug-in makes its context and its
// task. A binder works for one call, under the task's lock, over the parts of the task it is
// made with.
#pragma once

#include <string>

#include "task/channel_creation_scope.h"
#include "task/debug_link.h"
#include "task/plugin_parts.h"
#include "task/task_name_sets.h"
#include "task/task_parts.h"

namespace zqvorexRedir {

class PluginBinder {
 public:
  PluginBinder(const TaskParts& identity, PluginParts& plugin, TaskNameSets& names, DebugLink& debug)
      : identity_(identity), plugin_(plugin), names_(names), debug_(debug) {}

  // What the selector answers for a new task.
  struct Selection {
    std::string pluginName;
    bool debuggable = false;
    NameSet devices;
    NameSet channels;
  };

  // A channel creation: the devices of `list` that are new to the task select its plug-in,
  // which then makes its context and task.
  void attachPhysicalChannels(const Text& list, ChannelCreationScope& scope, zqerr_Status* status);
  // Global channels bring their devices along: the selector is asked with the whole task.
  void attachGlobalChannels(const Text& channelNames, ChannelCreationScope& scope, zqerr_Status* status);
  // After the plug-in made the channels: the target hears what changed, or comes now.
  void syncDebugTarget(const ChannelCreationScope& scope, zqerr_Status* status);

  // The set-up of a new task: it takes the selection's names and plug-in, which makes its
  // context; no plug-in named leaves nothing to make the task.
  void bindSelection(Selection& selection, zqerr_Status* status);
  void bindFixedPlugin(const char* pluginName, zqerr_Status* status);
  void createPluginTask(const char* savedTaskName, const char* channelNames, zqerr_Status* status);
  // A debug target for the task, told of the whole task.
  void announceToTarget(zqerr_Status* status);

  // The name of the task's context, as the selector and the plug-in know it.
  std::string contextName() const;

 private:
  const TaskParts& identity_;
  PluginParts& plugin_;
  TaskNameSets& names_;
  DebugLink& debug_;
};

}  // namespace zqvorexRedir

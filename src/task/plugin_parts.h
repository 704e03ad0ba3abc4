// The plug-in that serves a task: its name, whether its devices allow a debug target, the
// library, and the plug-in's context and task. Only holders of the task's mutex write them, each
// store under the state lock, so that abortTask and the control check can read them under the
// state lock alone. The fields go in the reverse of their destruction: the plug-in task before
// its context, and both before the library.
#pragma once

#include <memory>
#include <string>

#include "platform/platform.h"
#include "plugin/plugin.h"
#include "plugin/plugin_handles.h"
#include "status/status.h"
#include "task/task_types.h"

namespace zqvorexRedir {

// The plug-in fields as they were, for a channel creation to put back. Its fields go out in the
// same order as the task's.
struct PluginSnapshot {
  std::shared_ptr<Plugin> plugin;
  PluginContextPtr context;
  PluginTaskPtr task;
  std::string name;
  bool debuggable = false;
};

class PluginParts {
 public:
  // Both the plug-in and its task are there: operations can be forwarded.
  bool bound() const { return plugin_ && pluginTask_; }
  const std::shared_ptr<Plugin>& plugin() const { return plugin_; }
  zqvorexPlugin_Context_undefined* context() const { return pluginContext_.get(); }
  zqvorexPlugin_Task_undefined* task() const { return pluginTask_.get(); }
  const std::string& name() const { return pluginName_; }
  bool debuggable() const { return debuggable_; }
  // A gRPC session task keeps the plug-in it was made with: channels do not select one.
  bool fixed() const { return fixedPlugin_; }
  void markFixed() { fixedPlugin_ = true; }

  // The stores, each under the state lock.
  void setPlugin(std::shared_ptr<Plugin> plugin);
  void setPlugin(std::shared_ptr<Plugin> plugin, std::string name);
  void choose(std::shared_ptr<Plugin> plugin, std::string name, bool debuggable);
  void setContext(PluginContextPtr context);
  void setTask(PluginTaskPtr task);
  // Back to no plug-in: the task, its context, then the library. The name stays.
  void release();

  // Has the plug-in make its context, then its task, unless they are there.
  void createContext(const std::string& contextName, zqerr_Status* status);
  void createTask(const Text& taskName, const char* savedTaskName, const char* channelNames, uint32_t taskKind,
                  zqerr_Status* status);
  // Keeps a task handle fresh from the plug-in.
  void keepTask(zqvorexPlugin_Task_undefined* handle);

  PluginSnapshot snapshot() const { return {plugin_, pluginContext_, pluginTask_, pluginName_, debuggable_}; }
  // Exchanges the fields with `other`, under the state lock.
  void swap(PluginSnapshot& other);

  // Aborts the plug-in task under the state lock, shared and held while the plug-in aborts:
  // it may overtake a call that holds the task's mutex, and a store waits for it.
  void abort(zqerr_Status* status);

  zqplatform::SlimLock& stateLock() { return stateLock_; }

 private:
  zqplatform::SlimLock stateLock_;
  std::string pluginName_;
  bool debuggable_ = false;
  bool fixedPlugin_ = false;
  std::shared_ptr<Plugin> plugin_;
  PluginContextPtr pluginContext_;
  PluginTaskPtr pluginTask_;
};

}  // namespace zqvorexRedir

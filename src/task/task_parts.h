// Who a task is and the services it works with: what the factory hands a new task. Only the
// set-ups of a platform, watchdog or scan-list task change the kind or the device flag, before
// the task is bound.
#pragma once

#include <cstdint>
#include <memory>

#include "debug/debug_interfaces.h"
#include "plugin/plugin_manager.h"
#include "selection/plugin_selector.h"
#include "task/task_types.h"

namespace zqvorexRedir {

// What the task was made by; handed to the plug-in's createTask.
inline constexpr uint32_t kTaskKindOther = 0;
inline constexpr uint32_t kTaskKindPlatform = 2;  // no plug-in selection
inline constexpr uint32_t kTaskKindCreated = 4;

struct TaskParts {
  std::shared_ptr<IContext> context;
  uint32_t taskKind = kTaskKindOther;
  std::shared_ptr<IPluginManager> pluginManager;
  std::shared_ptr<IPluginSelector> pluginSelector;
  std::shared_ptr<IDebugServerFactory> debugServerFactory;  // may be empty
  Text name;
  bool isDeviceTask = false;  // a watchdog or switch task: it takes no channels
};

}  // namespace zqvorexRedir

// A plug-in's handles (contexts, tasks, debug sessions) held in shared pointers whose deleters
// keep the plug-in, and so its library, alive until the handle is destroyed. A deleter runs
// the destroy operation with a status of its own and drops what it reports: nothing a
// plug-in says while letting go of a handle reaches the caller.
#pragma once

#include <memory>

#include "plugin/plugin_interface.h"
#include "status/status.h"

namespace zqvorexRedir {

template <class Handle, void (PluginInterface::*Destroy)(Handle*, zqerr_Status*)>
class PluginHandleDeleter {
 public:
  explicit PluginHandleDeleter(std::shared_ptr<PluginInterface> plugin) : plugin_(std::move(plugin)) {}
  void operator()(Handle* handle) const noexcept {
    zqerr::Status local;
    try {
      ((*plugin_).*Destroy)(handle, &local);
    } catch (...) {
      // A plug-in must not throw; if it does, the handle is gone all the same.
    }
  }

 private:
  std::shared_ptr<PluginInterface> plugin_;
};

using PluginContextDeleter = PluginHandleDeleter<zqvorexPlugin_Context_undefined, &PluginInterface::destroyContext>;
using PluginTaskDeleter = PluginHandleDeleter<zqvorexPlugin_Task_undefined, &PluginInterface::destroyTask>;
using PluginDebugSessionDeleter =
    PluginHandleDeleter<zqvorexPlugin_Task_undefined, &PluginInterface::destroyDebugSession>;

using PluginContextPtr = std::shared_ptr<zqvorexPlugin_Context_undefined>;
using PluginTaskPtr = std::shared_ptr<zqvorexPlugin_Task_undefined>;

// The owner of a handle fresh from the plug-in: empty, with no deleter to run, for a null one.
template <class Deleter, class Handle>
std::shared_ptr<Handle> holdPluginHandle(Handle* handle, std::shared_ptr<PluginInterface> plugin) {
  if (!handle) return {};
  return std::shared_ptr<Handle>(handle, Deleter(std::move(plugin)));
}

}  // namespace zqvorexRedir

// The set-ups that the task factory runs on a new task: the plug-in is chosen from what the
// factory operation names (a saved task, channels, configuration text, a device) or fixed by
// the kind of task, and the plug-in then makes its own task.
#include "status/error_sites.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

constexpr const char* kGrpcPlugin = "zqvorexGrpc";
constexpr const char* kPlatformPlugin = "zqvorexPAL";

}  // namespace

// Under the lock, on a task that has nothing yet: `bind` gives the task its plug-in and context,
// `make` has the plug-in make the task. With `announce`, a task whose devices allow it gets a
// debug target that hears of the whole task.
template <class Bind, class Make>
void Task::runSetUp(bool announce, zqerr_Status* status, Bind&& bind, Make&& make) {
  if (!zqerr::isOpen(status)) return;
  try {
    FrameLock held(*this);
    if (!names_.devices.empty() || !names_.channels.empty()) {
      ZQ_FAIL(status, kTaskSoftwareFault412);
      return;
    }
    PluginBinder binding = binder();
    bind(binding);
    if (!zqerr::isOpen(status)) return;
    make(*plugin_.plugin(), plugin_.context());
    if (!announce || !plugin_.debuggable() || !zqerr::isOpen(status)) return;
    binding.announceToTarget(status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::setUpCreate(const Text& savedTaskName, const Text& channelNames, zqerr_Status* status) {
  if (savedTaskName.empty() && channelNames.empty()) return;  // bound by its first channel
  PluginBinder::Selection selection;
  runSetUp(
      true, status,
      [&](PluginBinder& binding) {
        identity_.pluginSelector->selectForTask(savedTaskName, channelNames, binding.contextName(),
                                                &selection.pluginName, &selection.debuggable, &selection.devices,
                                                &selection.channels, status);
        binding.bindSelection(selection, status);
      },
      [&](Plugin&, zqvorexPlugin_Context_undefined*) {
        binder().createPluginTask(savedTaskName.c_str(), channelNames.c_str(), status);
      });
}

void Task::setUpGrpc(const Text& sessionName, int32_t sessionFlags, zqerr_Status* status) {
  plugin_.markFixed();
  runSetUp(
      false, status, [&](PluginBinder& binding) { binding.bindFixedPlugin(kGrpcPlugin, status); },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(plugin.createTaskForGrpcSession(context, identity_.name.c_str(), sessionName.c_str(),
                                                         sessionFlags, status));
      });
}

void Task::setUpFromString(uint32_t format, const Text& configString, zqerr_Status* status) {
  PluginBinder::Selection selection;
  runSetUp(
      true, status,
      [&](PluginBinder& binding) {
        identity_.pluginSelector->selectForConfigString(format, configString, &selection.pluginName,
                                                        &selection.debuggable, &selection.devices,
                                                        &selection.channels, status);
        binding.bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(
            plugin.createTaskFromString(context, identity_.name.c_str(), format, configString.c_str(), status));
      });
}

void Task::setUpLoad(zqerr_Status* status) {
  if (zqerr::isOpen(status) && identity_.name.empty()) {
    ZQ_FAIL(status, kTaskInvalidTask);
    return;
  }
  PluginBinder::Selection selection;
  runSetUp(
      true, status,
      [&](PluginBinder& binding) {
        identity_.pluginSelector->selectForTask(identity_.name, std::string(), binding.contextName(),
                                                &selection.pluginName, &selection.debuggable, &selection.devices,
                                                &selection.channels, status);
        binding.bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(plugin.loadTask(context, identity_.name.c_str(), status));
      });
}

void Task::setUpPlatform(const Text& savedTaskName, zqerr_Status* status) {
  identity_.taskKind = kTaskKindPlatform;
  runSetUp(
      false, status, [&](PluginBinder& binding) { binding.bindFixedPlugin(kPlatformPlugin, status); },
      [&](Plugin&, zqvorexPlugin_Context_undefined*) { binder().createPluginTask(savedTaskName.c_str(), "", status); });
}

// The plug-in's operation takes two statuses; with nothing to tell them apart, both are the
// caller's. Its flag says whether the names named a saved task.
void Task::setUpAuto(const Text& channelNames, zqerr_Status* status) {
  PluginBinder::Selection selection;
  bool savedTask = false;
  runSetUp(
      true, status,
      [&](PluginBinder& binding) {
        savedTask = identity_.pluginSelector->selectForNames(channelNames, binding.contextName(),
                                                             &selection.pluginName, &selection.debuggable,
                                                             &selection.devices, &selection.channels, status);
        binding.bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(plugin.autoCreateTask(context, channelNames.c_str(), savedTask, status, status));
      });
}

void Task::setUpWatchdog(const Text& deviceName, zqerr_Status* status) {
  identity_.isDeviceTask = true;
  PluginBinder::Selection selection;
  runSetUp(
      false, status,
      [&](PluginBinder& binding) {
        selection.devices.insert(deviceName);
        identity_.pluginSelector->selectForDevices(selection.devices, binding.contextName(), &selection.pluginName,
                                                   &selection.debuggable, status);
        binding.bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(plugin.createWatchdogTimerTask(context, identity_.name.c_str(), deviceName.c_str(), status));
      });
}

void Task::setUpScanlist(const Text& scanList, zqerr_Status* status) {
  identity_.isDeviceTask = true;
  runSetUp(
      false, status, [&](PluginBinder& binding) { binding.bindFixedPlugin(kPlatformPlugin, status); },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        plugin_.keepTask(plugin.createSwitchScanlist(context, identity_.name.c_str(), scanList.c_str(), status));
      });
}

}  // namespace zqvorexRedir

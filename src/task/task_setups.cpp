// The set-ups that the task factory runs on a new task: the plug-in is chosen from what the
// factory operation names (a saved task, channels, configuration text, a device) or fixed by
// the kind of task, and the plug-in then makes its own task.
#include <mutex>

#include "contexts/context.h"
#include "status/error_sites.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

constexpr const char* kGrpcPlugin = "zqvorexGrpc";
constexpr const char* kPlatformPlugin = "zqvorexPAL";

}  // namespace

// What the selector answers for a new task.
struct Task::Selection {
  std::string pluginName;
  bool debuggable = false;
  NameSet devices;
  NameSet channels;
};

std::string Task::contextName() const { return context_ ? context_->getName() : std::string(); }

// Under the lock, on a task that has nothing yet: `bind` gives the task its plug-in and context,
// `make` has the plug-in make the task. With `announce`, a task whose devices allow it gets a
// debug target that hears of the whole task.
template <class Bind, class Make>
void Task::runSetUp(bool announce, zqerr_Status* status, Bind&& bind, Make&& make) {
  if (!zqerr::isOpen(status)) return;
  try {
    FrameLock held(*this);
    if (!deviceNames_.empty() || !physicalChannels_.empty()) {
      ZQ_FAIL(status, kTaskSoftwareFault412);
      return;
    }
    bind();
    if (!zqerr::isOpen(status)) return;
    make(*plugin_, pluginContext_.get());
    if (!announce || !debuggable_ || !zqerr::isOpen(status)) return;
    attachDebugTarget(status);
    tellTargetWholeTask(status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void Task::bindSelection(Selection& selection, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  deviceNames_ = std::move(selection.devices);
  physicalChannels_ = std::move(selection.channels);
  std::shared_ptr<Plugin> plugin;
  if (!selection.pluginName.empty()) plugin = pluginManager_->getPlugin(selection.pluginName, status);
  if (!zqerr::isOpen(status)) return;
  {
    std::lock_guard<zqplatform::SlimLock> state(stateLock_);
    plugin_ = std::move(plugin);
    pluginName_ = std::move(selection.pluginName);
    debuggable_ = selection.debuggable;
  }
  createPluginContext(status);  // no plug-in named: nothing can make the task
}

void Task::bindFixedPlugin(const char* pluginName, zqerr_Status* status) {
  Selection selection;
  selection.pluginName = pluginName;
  bindSelection(selection, status);
}

void Task::keepPluginTask(zqvorexPlugin_Task_undefined* handle) {
  setPluginTask(holdPluginHandle<PluginTaskDeleter>(handle, plugin_));
}

void Task::setUpCreate(const Text& savedTaskName, const Text& channelNames, zqerr_Status* status) {
  if (savedTaskName.empty() && channelNames.empty()) return;  // bound by its first channel
  Selection selection;
  runSetUp(
      true, status,
      [&] {
        pluginSelector_->selectForTask(savedTaskName, channelNames, contextName(), &selection.pluginName,
                                       &selection.debuggable, &selection.devices, &selection.channels, status);
        bindSelection(selection, status);
      },
      [&](Plugin&, zqvorexPlugin_Context_undefined*) {
        createPluginTask(savedTaskName.c_str(), channelNames.c_str(), status);
      });
}

void Task::setUpGrpc(const Text& sessionName, int32_t sessionFlags, zqerr_Status* status) {
  fixedPlugin_ = true;
  runSetUp(
      false, status, [&] { bindFixedPlugin(kGrpcPlugin, status); },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.createTaskForGrpcSession(context, name_.c_str(), sessionName.c_str(), sessionFlags,
                                                       status));
      });
}

void Task::setUpFromString(uint32_t format, const Text& configString, zqerr_Status* status) {
  Selection selection;
  runSetUp(
      true, status,
      [&] {
        pluginSelector_->selectForConfigString(format, configString, &selection.pluginName, &selection.debuggable,
                                               &selection.devices, &selection.channels, status);
        bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.createTaskFromString(context, name_.c_str(), format, configString.c_str(), status));
      });
}

void Task::setUpLoad(zqerr_Status* status) {
  if (zqerr::isOpen(status) && name_.empty()) {
    ZQ_FAIL(status, kTaskInvalidTask);
    return;
  }
  Selection selection;
  runSetUp(
      true, status,
      [&] {
        pluginSelector_->selectForTask(name_, std::string(), contextName(), &selection.pluginName,
                                       &selection.debuggable, &selection.devices, &selection.channels, status);
        bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.loadTask(context, name_.c_str(), status));
      });
}

void Task::setUpPlatform(const Text& savedTaskName, zqerr_Status* status) {
  taskKind_ = kTaskKindPlatform;
  runSetUp(
      false, status, [&] { bindFixedPlugin(kPlatformPlugin, status); },
      [&](Plugin&, zqvorexPlugin_Context_undefined*) { createPluginTask(savedTaskName.c_str(), "", status); });
}

// The plug-in's operation takes two statuses; with nothing to tell them apart, both are the
// caller's. Its flag says whether the names named a saved task.
void Task::setUpAuto(const Text& channelNames, zqerr_Status* status) {
  Selection selection;
  bool savedTask = false;
  runSetUp(
      true, status,
      [&] {
        savedTask = pluginSelector_->selectForNames(channelNames, contextName(), &selection.pluginName,
                                                    &selection.debuggable, &selection.devices, &selection.channels,
                                                    status);
        bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.autoCreateTask(context, channelNames.c_str(), savedTask, status, status));
      });
}

void Task::setUpWatchdog(const Text& deviceName, zqerr_Status* status) {
  isDeviceTask_ = true;
  Selection selection;
  runSetUp(
      false, status,
      [&] {
        selection.devices.insert(deviceName);
        pluginSelector_->selectForDevices(selection.devices, contextName(), &selection.pluginName,
                                          &selection.debuggable, status);
        bindSelection(selection, status);
      },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.createWatchdogTimerTask(context, name_.c_str(), deviceName.c_str(), status));
      });
}

void Task::setUpScanlist(const Text& scanList, zqerr_Status* status) {
  isDeviceTask_ = true;
  runSetUp(
      false, status, [&] { bindFixedPlugin(kPlatformPlugin, status); },
      [&](Plugin& plugin, zqvorexPlugin_Context_undefined* context) {
        keepPluginTask(plugin.createSwitchScanlist(context, name_.c_str(), scanList.c_str(), status));
      });
}

}  // namespace zqvorexRedir

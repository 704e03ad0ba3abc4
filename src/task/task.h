// The object behind a task handle. It knows nothing of measurement: it holds the plug-in that
// serves the task (library, context, plug-in task), serialises calls, and forwards each
// operation to the plug-in, answering by itself what a task without a plug-in task can answer.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "debug/debug_interfaces.h"
#include "debug/debug_session_attributes.h"
#include "debug/target_callbacks.h"
#include "platform/platform.h"
#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "selection/plugin_selector.h"
#include "task/event_cache.h"
#include "task/itask.h"

namespace zqvorexRedir {

// What the task was made by; handed to the plug-in's createTask.
inline constexpr uint32_t kTaskKindOther = 0;
inline constexpr uint32_t kTaskKindPlatform = 2;  // no plug-in selection
inline constexpr uint32_t kTaskKindCreated = 4;

// Bits of deferredRelease: what the last unlock lets go.
inline constexpr uint32_t kReleaseDebugServer = 1u << 0;
inline constexpr uint32_t kReleaseDebugTarget = 1u << 1;

struct TaskParts {
  std::shared_ptr<IContext> context;
  uint32_t taskKind = kTaskKindOther;
  std::shared_ptr<IPluginManager> pluginManager;
  std::shared_ptr<IPluginSelector> pluginSelector;
  std::shared_ptr<IDebugServerFactory> debugServerFactory;  // may be empty
  Text name;
  bool isDeviceTask = false;
};

class Task final : public ITask, public std::enable_shared_from_this<Task> {
 public:
  explicit Task(TaskParts parts);
  ~Task() override;
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  void lock(zqerr_Status* status) override;
  void lock() override;
  void unlock() override;
  const Text& getName() const override { return name_; }
  std::shared_ptr<IContext> getContext() override { return context_; }
  std::shared_ptr<IContext> getContext() const override { return context_; }
  EventTokens getEvents(int32_t eventId, zqerr_Status* status) override;
  std::shared_ptr<ITask> sharedFromThis() override { return weak_from_this().lock(); }
  std::shared_ptr<const ITask> sharedFromThis() const override { return weak_from_this().lock(); }

#define ZQ_TASK_OP(result, op, params, args) result op params override;
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP

  // The plug-in parts, set under stateLock; the set-up of the factory and of channel creation
  // uses these.
  void setPlugin(std::shared_ptr<Plugin> plugin, std::string pluginName);
  void setPluginContext(PluginContextPtr pluginContext);
  void setPluginTask(PluginTaskPtr pluginTask);
  void setDebugServer(std::shared_ptr<IDebugServer> server);
  void setDebugTarget(std::shared_ptr<IDebugTarget> target);
  void requestDeferredRelease(uint32_t bits) { deferredRelease_ |= bits; }

  // The set-ups of the factory operations, run once on a new task under its lock: each binds
  // the task to its plug-in and has the plug-in make its task.
  void setUpCreate(const Text& savedTaskName, const Text& channelNames, zqerr_Status* status);
  void setUpGrpc(const Text& sessionName, int32_t sessionFlags, zqerr_Status* status);
  void setUpFromString(uint32_t format, const Text& configString, zqerr_Status* status);
  void setUpLoad(zqerr_Status* status);
  void setUpPlatform(const Text& savedTaskName, zqerr_Status* status);
  void setUpAuto(const Text& channelNames, zqerr_Status* status);
  void setUpWatchdog(const Text& deviceName, zqerr_Status* status);
  void setUpScanlist(const Text& scanList, zqerr_Status* status);

  // For inspection by the owner and by tests.
  const std::string& pluginName() const { return pluginName_; }
  bool hasPluginTask() const { return static_cast<bool>(pluginTask_); }
  int32_t lockDepth() const { return lockDepth_; }
  const NameSet& deviceNames() const { return deviceNames_; }
  const NameSet& physicalChannels() const { return physicalChannels_; }
  DebugTargetFlags& targetFlags() { return targetFlags_; }
  DebugSessionAttributes& debugAttributes() { return debugAttributes_; }

  // The operation frame, the same for every forwarded operation: `call` runs with the plug-in
  // and its task, `absent` when there is none. Both give the result.
  template <class R, class Call, class Absent>
  R runFrame(zqerr_Status* status, Call&& call, Absent&& absent);

  // The frame of a channel creation: the devices of `physicalChannels` may bind the task to a
  // plug-in first, and a failure leaves the task as it was.
  template <class R, class Call>
  R runChannelCreation(zqerr_Status* status, const Text& physicalChannels, Call&& call);

  // What a task without a plug-in task answers, by family.
  void failNoDevice(zqerr_Status* status) const;
  void failNoChannels(zqerr_Status* status) const;
  void failChannelNotInTask(const zqgopher::StringArrayView& channels, zqerr_Status* status) const;

 private:
  // The operations the task writes out itself; the generated overrides call these.
  void commitDebugSessionOwn(zqerr_Status* status);
  void abortTaskOwn(zqerr_Status* status);
  uint32_t getTaskAttributeBoolOwn(int32_t attributeId, zqerr_Status* status);
  int32_t getTaskAttributeI32Own(int32_t attributeId, zqerr_Status* status);
  void getTaskAttributeStringOwn(int32_t attributeId, zqgopher_IString* value, zqerr_Status* status);
  void getTaskAttributeStringVtrOwn(int32_t attributeId, zqgopher_IItemAdder* value, zqerr_Status* status);
  uint32_t getTaskAttributeU32Own(int32_t attributeId, zqerr_Status* status);
  void setTaskAttributeBoolOwn(int32_t attributeId, uint32_t value, zqerr_Status* status);
  void setTaskAttributeI32Own(int32_t attributeId, int32_t value, zqerr_Status* status);
  void setTaskAttributeStringOwn(int32_t attributeId, const Text& value, zqerr_Status* status);
  void setTaskAttributeStringVtrOwn(int32_t attributeId, const zqgopher_ArrayView* value, zqerr_Status* status);
  void resetTaskAttributeBoolOwn(int32_t attributeId, zqerr_Status* status);
  void resetTaskAttributeI32Own(int32_t attributeId, zqerr_Status* status);
  void resetTaskAttributeStringOwn(int32_t attributeId, zqerr_Status* status);
  void resetTaskAttributeStringVtrOwn(int32_t attributeId, zqerr_Status* status);
  void exportSignalOwn(int32_t signalId, const zqgopher::StringArrayView& channels,
                       const zqgopher::StringArrayView& terminals, zqerr_Status* status);
  void configureWatchdogAOExpirStatesOwn(const zqgopher_ArrayView* channelLists, const zqgopher_ArrayView* outputTypes,
                                         const zqgopher_ArrayView* expirStates, zqerr_Status* status);
  void configureWatchdogCOExpirStatesOwn(const zqgopher_ArrayView* channelLists, const zqgopher_ArrayView* expirStates,
                                         zqerr_Status* status);
  void configureWatchdogDOExpirStatesOwn(const zqgopher_ArrayView* channelLists, const zqgopher_ArrayView* expirStates,
                                         zqerr_Status* status);
  void addChannelsToTaskOwn(const Text& channelNames, zqerr_Status* status);
  void rollbackFailedChannelCreationsOwn(const Text& channelNames, zqerr_Status* status);
  void setReadAttributeI32Own(const zqgopher::StringArrayView& channels, int32_t attributeId, int32_t value,
                              zqerr_Status* status);
  void resetReadAttributeI32Own(const zqgopher::StringArrayView& channels, int32_t attributeId,
                                zqerr_Status* status);
  void configureLoggingOwn(const Text& filePath, int32_t loggingMode, const Text& groupName, int32_t operation,
                           zqerr_Status* status);
  zqvorexPlugin_EventToken registerEveryNSamplesEventOwn(int32_t eventId, uint32_t nSamples, bool direct,
                                                          zqgopher_IEventEveryNSamples* event, zqerr_Status* status);
  zqvorexPlugin_EventToken registerDoneEventOwn(bool direct, zqgopher_IEventDone* event, zqerr_Status* status);
  zqvorexPlugin_EventToken registerSignalEventOwn(int32_t signalId, bool direct, zqgopher_IEventSignal* event,
                                                  zqerr_Status* status);
  void unregisterEventOwn(zqvorexPlugin_EventToken token, zqerr_Status* status);
  // Enters a token that the plug-in gave into the cache; takes the registration back when that fails.
  zqvorexPlugin_EventToken keepEventToken(Plugin& plugin, zqvorexPlugin_Task_undefined* pluginTask, int32_t eventId,
                                          zqvorexPlugin_EventToken token, const void* boundaryObject,
                                          zqerr_Status* status);

 private:
  class FrameLock;
  class ChannelCreationScope;

  struct Selection;
  template <class Bind, class Make>
  void runSetUp(bool announce, zqerr_Status* status, Bind&& bind, Make&& make);
  void bindSelection(Selection& selection, zqerr_Status* status);
  void bindFixedPlugin(const char* pluginName, zqerr_Status* status);
  void keepPluginTask(zqvorexPlugin_Task_undefined* handle);
  std::string contextName() const;

  void attachPhysicalChannels(const Text& list, ChannelCreationScope& scope, zqerr_Status* status);
  void attachGlobalChannels(const Text& channelNames, ChannelCreationScope& scope, zqerr_Status* status);
  void tellTargetWholeTask(zqerr_Status* status);
  void rebuildNameSets(zqerr_Status* status);
  void createPluginContext(zqerr_Status* status);
  void createPluginTask(const char* savedTaskName, const char* channelNames, zqerr_Status* status);
  void syncDebugTarget(const ChannelCreationScope& scope, zqerr_Status* status);
  void attachDebugTarget(zqerr_Status* status);
  void rollBack(ChannelCreationScope& scope);

  // Frame step 2: a target that asked for it reviews who controls the task.
  void checkControl(bool revoke, zqerr_Status* status);
  // Frame step 4: an open, uncommitted debug session refuses every forwarded operation.
  bool refusedBySession(zqerr_Status* status) const;
  bool hasPluginParts() const { return plugin_ && pluginTask_; }

  // Class Task attributes: the answers of the task itself, then the plug-in.
  template <class R, class Local, class Call, class Absent>
  R runTaskAttribute(zqerr_Status* status, Local&& local, Call&& call, Absent&& absent);
  void failNotInTaskContext(zqerr_Status* status) const;
  void abortPluginTask(zqerr_Status* status);
  // Tells the debug target of a change of logging that `mode` makes, runs `call`, and takes
  // the notice back when the plug-in refused.
  template <class Call>
  void withLoggingNotice(int32_t mode, zqerr_Status* status, Call&& call);
  void createDebugSessionTask(zqerr_Status* status);
  static void abortThroughCallbacks(ILockable& task, zqerr_Status* status);

  // Fields in the order of destruction's reverse: the plug-in task goes before its context,
  // and both before the library.
  std::shared_ptr<IContext> context_;
  uint32_t taskKind_;
  std::shared_ptr<IPluginManager> pluginManager_;
  std::shared_ptr<IPluginSelector> pluginSelector_;
  std::shared_ptr<IDebugServerFactory> debugServerFactory_;
  Text name_;
  bool isDeviceTask_;
  std::recursive_mutex mutex_;
  int32_t lockDepth_ = 0;
  uint32_t deferredRelease_ = 0;
  zqplatform::SlimLock stateLock_;
  std::string pluginName_;
  bool debuggable_ = false;
  bool fixedPlugin_ = false;
  std::shared_ptr<Plugin> plugin_;
  PluginContextPtr pluginContext_;
  PluginTaskPtr pluginTask_;
  EventCache eventCache_;
  NameSet deviceNames_;
  NameSet physicalChannels_;
  DebugSessionAttributes debugAttributes_;
  TargetCallbacks targetCallbacks_;
  std::shared_ptr<IDebugServer> debugServer_;
  std::shared_ptr<IDebugTarget> debugTarget_;
  DebugTargetFlags targetFlags_;
  bool loggingActive_ = false;
};

}  // namespace zqvorexRedir

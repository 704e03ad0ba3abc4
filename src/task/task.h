// The object behind a task handle. It knows nothing of measurement: it holds the plug-in that
// serves the task (library, context, plug-in task), serialises calls, and forwards each
// operation to the plug-in, answering by itself what a task without a plug-in task can answer.
//
// Its parts, each a field of its own class, in the order of their construction:
//   identity_  who the task is and the services it uses (TaskParts)
//   lock_      the recursive mutex, its depth and the deferred release (TaskLock)
//   plugin_    the plug-in fields under the state lock (PluginParts); bound by PluginBinder,
//              put back by ChannelCreationScope
//   events_    the events registered with the plug-in (EventRegistry)
//   names_     the devices and physical channels (TaskNameSets)
//   debug_     the debug session record, server, target and its flags (DebugLink)
// They go in the reverse order: the debug objects first, then the plug-in task, its context and
// the library, and the services last.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "task/debug_link.h"
#include "task/event_registry.h"
#include "task/itask.h"
#include "task/plugin_binder.h"
#include "task/plugin_parts.h"
#include "task/task_lock.h"
#include "task/task_name_sets.h"
#include "task/task_parts.h"
#include "task/task_routes.h"

namespace zqvorexRedir {

class Task final : public ITask, public std::enable_shared_from_this<Task> {
 public:
  explicit Task(TaskParts parts);
  ~Task() override;
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;

  void lock(zqerr_Status* status) override;
  // In line: every forwarded operation runs them.
  void lock() override { lock_.lock(); }
  void unlock() override {
    lock_.unlock([this](uint32_t bits) { return debug_.takeOut(bits); });
  }
  const Text& getName() const override { return identity_.name; }
  std::shared_ptr<IContext> getContext() override { return identity_.context; }
  std::shared_ptr<IContext> getContext() const override { return identity_.context; }
  EventTokens getEvents(int32_t eventId, zqerr_Status* status) override;
  std::shared_ptr<ITask> sharedFromThis() override;
  std::shared_ptr<const ITask> sharedFromThis() const override;

#define ZQ_TASK_OP(result, op, params, args) result op params override;
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP

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

  // For the owner, tests and benchmarks: stores that bind a task by hand, and the parts' state.
  void setPlugin(std::shared_ptr<Plugin> plugin, std::string pluginName) {
    plugin_.setPlugin(std::move(plugin), std::move(pluginName));
  }
  void setPluginContext(PluginContextPtr pluginContext) { plugin_.setContext(std::move(pluginContext)); }
  void setPluginTask(PluginTaskPtr pluginTask) { plugin_.setTask(std::move(pluginTask)); }
  void setDebugServer(std::shared_ptr<IDebugServer> server) { debug_.setServer(std::move(server)); }
  void setDebugTarget(std::shared_ptr<IDebugTarget> target) { debug_.setTarget(std::move(target)); }
  void requestDeferredRelease(uint32_t bits) { lock_.requestRelease(bits); }
  const std::string& pluginName() const { return plugin_.name(); }
  bool hasPluginTask() const { return plugin_.task() != nullptr; }
  int32_t lockDepth() const { return lock_.depth(); }
  const NameSet& deviceNames() const { return names_.devices; }
  const NameSet& physicalChannels() const { return names_.channels; }
  DebugTargetFlags& targetFlags() { return debug_.flags(); }
  DebugSessionAttributes& debugAttributes() { return debug_.attributes(); }

 private:
  class FrameLock;

  // The frames, in task_frame.h. The common one: `call` runs with the plug-in and its task,
  // `absent` when there is none; both give the result.
  template <class R, class Call, class Absent>
  R runFrame(zqerr_Status* status, Call&& call, Absent&& absent);
  // A channel creation's: `attach` may bind the task to a plug-in first, and a failure leaves
  // the task as it was.
  template <class R, class Attach, class Call, class Absent>
  R runChannelCreation(zqerr_Status* status, Attach&& attach, Call&& call, Absent&& absent);
  // An operation of the interface by its route, in task_operations.cpp.
  template <class R, TaskRoute route, size_t mirrorRow, class Forward, class Own, class... Args>
  R runOperation(Forward&& forward, Own&& own, Args&... args);
  // A set-up's, in task_setups.cpp.
  template <class Bind, class Make>
  void runSetUp(bool announce, zqerr_Status* status, Bind&& bind, Make&& make);
  // An attribute of class Task: the answers of the task itself, then the plug-in.
  template <class R, class Local, class Call, class Absent>
  R runTaskAttribute(zqerr_Status* status, Local&& local, Call&& call, Absent&& absent);
  template <class Local, class Forward>
  void changeTaskAttribute(zqerr_Status* status, Local&& local, Forward&& forward);

  PluginBinder binder() { return PluginBinder(identity_, plugin_, names_, debug_); }

  // What a task without a plug-in task answers, by family.
  template <class R, OpRoute route, class... Args>
  R answerUnbound(Args&... args) const;
  void failNoDevice(zqerr_Status* status) const;
  void failNoChannels(zqerr_Status* status) const;
  void failChannelNotInTask(const zqgopher::StringArrayView& channels, zqerr_Status* status) const;
  void failNotInTaskContext(zqerr_Status* status) const;

  // The operations the task writes out itself (route "own"); the generated overrides call these.
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

  // The helpers of the own operations.
  void createDebugSessionTask(zqerr_Status* status);
  void rebuildNameSets(zqerr_Status* status);
  NameSet readPhysicalChannels(zqerr_Status* status);
  static void abortThroughCallbacks(ILockable& task, zqerr_Status* status);

  TaskParts identity_;
  TaskLock lock_;
  PluginParts plugin_;
  EventRegistry events_;
  TaskNameSets names_;
  DebugLink debug_;
};

}  // namespace zqvorexRedir

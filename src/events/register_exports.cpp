// Event registration of the C interface: a callback makes an action and the event object the
// plug-in fires; a null callback takes the registration back.
#include "zqcai_rd_mbcs.h"

#include "events/event_actions.h"
#include "events/event_ids.h"
#include "events/thread_window.h"
#include "frame/export.h"
#include "frame/task_holder.h"
#include "globals/shared_globals.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "status/report_writer.h"
#include "tracing/trace.h"

namespace {

using nZQCAI100::ICTaskEventsList;
using zqvorexRedir::EventTokens;
using zqvorexRedir::ITask;

constexpr uint32_t kSynchronous = 1u << 0;
constexpr uint32_t kOption30 = 1u << 30;

// What one registration function works with.
struct Call {
  ITask* task;  // null when the handle gave none
  TaskHandle handle;
  std::shared_ptr<ICTaskEventsList> events;
  uint32_t options;
  void* callbackData;
  zqerr_Status* status;

  bool synchronous() const { return (options & kSynchronous) != 0; }
  nZQCAI100::ActionTarget target() const {
    return {handle, callbackData, !synchronous(), (options & kOption30) != 0, nZQCAI100::ensureEventWindow(),
            events};
  }
  bool alreadyRegistered(int32_t pluginId) const {
    return task && !task->getEvents(pluginId, status).empty();
  }
};

// The sites of one function's refusals.
struct Sites {
  const zqerr::Site& foreignThread;
  const zqerr::Site& twice;
  const zqerr::Site& nothingToRemove;
};

// The synchronous events of a task belong to one thread.
bool refusedForeignThread(const Call& call, const Sites& sites) {
  if (!call.synchronous() || !call.events || call.events->getRegistrationState(call.handle) >= 0) return false;
  zqerr::fail(call.status, sites.foreignThread);
  return true;
}

// A second registration is refused, but the call goes on: the objects are still made and let
// go, and the task's operation returns at once on the failed status.
void refuseSecond(const Call& call, const Sites& sites, int32_t pluginId) {
  if (call.alreadyRegistered(pluginId)) zqerr::fail(call.status, sites.twice);
}

// Hands the event object around `action` to the plug-in through `registerWith`.
template <class Adapter, class Action, class Register>
void hand(const Call& call, int32_t listId, void* callback, Action* action, Register&& registerWith) {
  Adapter* adapter = Adapter::make(action);
  if (!adapter) return;
  if (call.task) registerWith(*call.task, adapter->boundary());
  if (zqerr::isOpen(call.status) && call.synchronous() && call.events)
    call.events->addRegistration(call.handle, listId, callback);
  adapter->releaseReference();
}

// Takes the first registration of `pluginId` back, and the thread's record of it.
void unregister(const Call& call, const Sites& sites, int32_t pluginId, int32_t listId) {
  EventTokens tokens;
  if (call.task) tokens = call.task->getEvents(pluginId, call.status);
  if (tokens.empty())
    zqerr::fail(call.status, sites.nothingToRemove);
  else
    call.task->unregisterEvent(tokens.front(), call.status);
  if (call.events) call.events->removeRegistration(call.handle, listId);
}

// The frame of the three functions: the trace, the status, the events list, the task.
template <class Params, class Body>
int32_t registrationFrame(const char* function, TaskHandle handle, uint32_t options, void* callbackData,
                          Params&& params, Body&& body) {
  zqtrace::TraceCall trace(function);
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, handle);
    params(trace);
    trace.endParams();
  }
  zqerr::Status status;
  std::shared_ptr<ICTaskEventsList> events = nZQCAI100::getTaskEventsList(&status);
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  try {
    if (events) body(Call{task.get(), handle, events, options, callbackData, &status});
  } catch (...) {
    zqerr::convertCurrentException(&status);
  }
  trace.ret("*callbackData", zqtrace::kPointer, callbackData);
  trace.retval(status.code);
  return status.code;
}

constexpr Sites kEveryNSites{zqsite::kCeventsEveryNSyncForeignThread, zqsite::kCeventsEveryNAcquiredTwice,
                             zqsite::kCeventsEveryNNothingToRemove};
constexpr Sites kEveryNTransferredSites{zqsite::kCeventsEveryNSyncForeignThread,
                                        zqsite::kCeventsEveryNTransferredTwice,
                                        zqsite::kCeventsEveryNNothingToRemove};
constexpr Sites kDoneSites{zqsite::kCeventsDoneSyncForeignThread, zqsite::kCeventsDoneTwice,
                           zqsite::kCeventsDoneNothingToRemove};
constexpr Sites kSignalSites{zqsite::kCeventsSignalSyncForeignThread, zqsite::kCeventsSignalTwice,
                             zqsite::kCeventsSignalNothingToRemove};

void refuseEventType(zqerr_Status* status) {
  if (!ZQ_FAIL(status, kCeventsEveryNBadType)) return;
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  zqerr::addItem(w, zqerr::usage::kUsageTypeParamNum, int32_t{2});
}

}  // namespace

ZQ_EXPORT int32 VorexRegisterEveryNSamplesEvent(TaskHandle task, int32 everyNsamplesEventType, uInt32 nSamples,
                                                uInt32 options, VorexEveryNSamplesEventCallbackPtr callbackFunction,
                                                void* callbackData) {
  return registrationFrame(
      "VorexRegisterEveryNSamplesEvent", task, options, callbackData,
      [&](zqtrace::TraceCall& trace) {
        trace.paramNamed("everyNsamplesEventType", zqtrace::Literals::kEveryNSamplesEventType,
                         everyNsamplesEventType);
        trace.param("nSamples", zqtrace::kSize, nSamples);
        trace.param("options", zqtrace::kSize, options);
        trace.param("callbackFunction", zqtrace::kU32Pointer, callbackFunction);
        trace.param("callbackData", zqtrace::kPointer, callbackData);
      },
      [&](const Call& call) {
        if (refusedForeignThread(call, kEveryNSites)) return;
        const bool acquired = everyNsamplesEventType == nZQCAI100::kAcquiredIntoBuffer;
        if (!acquired && everyNsamplesEventType != nZQCAI100::kTransferredFromBuffer) {
          refuseEventType(call.status);
          return;
        }
        const int32_t id = acquired ? nZQCAI100::kEventAcquiredIntoBuffer : nZQCAI100::kEventTransferredFromBuffer;
        const Sites& sites = acquired ? kEveryNSites : kEveryNTransferredSites;
        if (!callbackFunction) return unregister(call, sites, id, id);
        refuseSecond(call, sites, id);
        auto* action = new nZQCAI100::CcaiEveryNSamplesEventAction(
            call.target(), static_cast<uint32_t>(everyNsamplesEventType), callbackFunction, nSamples);
        hand<zqgopher::EventEveryNSamplesAdapter>(
            call, id, reinterpret_cast<void*>(callbackFunction), action,
            [&](ITask& t, zqgopher_IEventEveryNSamples* event) {
              t.registerEveryNSamplesEvent(id, nSamples, !call.synchronous(), event, call.status);
            });
      });
}

ZQ_EXPORT int32 VorexRegisterDoneEvent(TaskHandle task, uInt32 options, VorexDoneEventCallbackPtr callbackFunction,
                                       void* callbackData) {
  return registrationFrame(
      "VorexRegisterDoneEvent", task, options, callbackData,
      [&](zqtrace::TraceCall& trace) {
        trace.param("options", zqtrace::kSize, options);
        trace.param("callbackFunction", zqtrace::kU32Pointer, callbackFunction);
        trace.param("callbackData", zqtrace::kPointer, callbackData);
      },
      [&](const Call& call) {
        if (refusedForeignThread(call, kDoneSites)) return;
        if (!callbackFunction)
          return unregister(call, kDoneSites, nZQCAI100::kPluginEventDone, nZQCAI100::kListEventDone);
        refuseSecond(call, kDoneSites, nZQCAI100::kPluginEventDone);
        auto* action = new nZQCAI100::CcaiDoneEventAction(call.target(), callbackFunction);
        hand<zqgopher::EventDoneAdapter>(call, nZQCAI100::kListEventDone, reinterpret_cast<void*>(callbackFunction),
                                         action,
                                         [&](ITask& t, zqgopher_IEventDone* event) {
                                           t.registerDoneEvent(!call.synchronous(), event, call.status);
                                         });
      });
}

ZQ_EXPORT int32 VorexRegisterSignalEvent(TaskHandle task, int32 signalID, uInt32 options,
                                         VorexSignalEventCallbackPtr callbackFunction, void* callbackData) {
  return registrationFrame(
      "VorexRegisterSignalEvent", task, options, callbackData,
      [&](zqtrace::TraceCall& trace) {
        trace.paramNamed("signalID", zqtrace::Literals::kSignal, signalID);
        trace.param("options", zqtrace::kSize, options);
        trace.param("callbackFunction", zqtrace::kU32Pointer, callbackFunction);
        trace.param("callbackData", zqtrace::kPointer, callbackData);
      },
      [&](const Call& call) {
        if (refusedForeignThread(call, kSignalSites)) return;
        if (!callbackFunction) return unregister(call, kSignalSites, nZQCAI100::kPluginEventSignal, signalID);
        refuseSecond(call, kSignalSites, nZQCAI100::kPluginEventSignal);
        auto* action = new nZQCAI100::CcaiSignalEventAction(call.target(), static_cast<uint32_t>(signalID),
                                                            callbackFunction);
        hand<zqgopher::EventSignalAdapter>(call, signalID, reinterpret_cast<void*>(callbackFunction), action,
                                           [&](ITask& t, zqgopher_IEventSignal* event) {
                                             t.registerSignalEvent(signalID, !call.synchronous(), event, call.status);
                                           });
      });
}

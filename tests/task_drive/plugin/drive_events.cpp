// Events and task control of zqtestDrive. Registered event objects are kept with a reference
// of the plug-in's and fired from threads of the plug-in's own, as a device's would be; no lock
// of the plug-in is held while an event fires, since its callback may call back into the task.
#include <algorithm>
#include <atomic>
#include <thread>

#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

namespace {

constexpr int32_t kDoneEventId = 12576;

// A thread of the plug-in that fires every event of every live task, over and over.
class Storm {
 public:
  ~Storm() { set(false); }
  void set(bool on) {
    std::lock_guard<std::mutex> guard(mutex_);
    if (on == thread_.joinable()) return;
    if (on) {
      stop_ = false;
      thread_ = std::thread([this] { run(); });
    } else {
      stop_ = true;
      thread_.join();
    }
  }

 private:
  void run() {
    while (!stop_) {
      std::vector<DriveEvent> events = takeEvents("", 0);
      for (const DriveEvent& event : events) fireEvent(event, 1, 0);
      for (const DriveEvent& event : events) releaseEvent(event);
      std::this_thread::yield();
    }
  }
  std::mutex mutex_;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};
Storm storm;
constexpr int32_t kSignalEventId = 12575;

template <class Event>
zqvorexPlugin_EventToken keep(zqvorexPlugin_Task_undefined* task, int32_t eventId, Event* event,
                              zqerr_Status* status) {
  if (!isOpen(status)) return 0;
  if (!event) {
    fail(status, zqtestDrive_kUnknownTokenCode);
    return 0;
  }
  DriveTask& record = *asTask(task);
  event->table->addRef(event);
  count(zqtestDrive_eventRefs);
  std::lock_guard<std::mutex> guard(record.mutex);
  const uint64_t token = record.nextToken++;
  record.events.push_back(DriveEvent{token, eventId, event});
  count(zqtestDrive_eventsRegistered);
  return token;
}

}  // namespace

namespace zqtestdrive {

void releaseEvent(const DriveEvent& event) {
  auto* base = static_cast<zqgopher_IEventBase*>(event.object);
  base->table->release(base);
  count(zqtestDrive_eventRefs, -1);
}

void fireEvent(const DriveEvent& event, uint32_t times, int32_t code) {
  zqerr_Status status{0, 0, nullptr, nullptr};
  if (event.eventId == kDoneEventId) {
    auto* done = static_cast<zqgopher_IEventDone*>(event.object);
    zqerr_Status ended{code, 0, nullptr, nullptr};
    done->table->fire(done, &ended, &status);
  } else if (event.eventId == kSignalEventId) {
    auto* signal = static_cast<zqgopher_IEventSignal*>(event.object);
    signal->table->fire(signal, times, &status);
  } else {
    auto* samples = static_cast<zqgopher_IEventEveryNSamples*>(event.object);
    samples->table->fire(samples, times, 0, &status);
  }
  count(zqtestDrive_eventsFired);
}

}  // namespace zqtestdrive

extern "C" {

ZQ_NATIVE_EXPORT zqvorexPlugin_EventToken zqtestDrive_registerDoneEvent(zqvorexPlugin_Task_undefined* task, bool,
                                                                        zqgopher_IEventDone* event,
                                                                        zqerr_Status* status) {
  return keep(task, kDoneEventId, event, status);
}

ZQ_NATIVE_EXPORT zqvorexPlugin_EventToken
zqtestDrive_registerEveryNSamplesEvent(zqvorexPlugin_Task_undefined* task, int32_t eventId, uint32_t, bool,
                                       zqgopher_IEventEveryNSamples* event, zqerr_Status* status) {
  return keep(task, eventId, event, status);
}

ZQ_NATIVE_EXPORT zqvorexPlugin_EventToken zqtestDrive_registerSignalEvent(zqvorexPlugin_Task_undefined* task,
                                                                          int32_t, bool, zqgopher_IEventSignal* event,
                                                                          zqerr_Status* status) {
  return keep(task, kSignalEventId, event, status);
}

ZQ_NATIVE_EXPORT void zqtestDrive_unregisterEvent(zqvorexPlugin_Task_undefined* task,
                                                  zqvorexPlugin_EventToken token, zqerr_Status* status) {
  if (!isOpen(status)) return;
  DriveTask& record = *asTask(task);
  DriveEvent gone;
  {
    std::lock_guard<std::mutex> guard(record.mutex);
    auto found = std::find_if(record.events.begin(), record.events.end(),
                              [token](const DriveEvent& event) { return event.token == token; });
    if (found == record.events.end()) {
      fail(status, zqtestDrive_kUnknownTokenCode);
      return;
    }
    gone = *found;
    record.events.erase(found);
    count(zqtestDrive_eventsUnregistered);
  }
  releaseEvent(gone);
}

ZQ_NATIVE_EXPORT void zqtestDrive_controlTask(zqvorexPlugin_Task_undefined*, int32_t action, bool,
                                              zqerr_Status* status) {
  if (!isOpen(status)) return;
  count(action == 0 ? zqtestDrive_starts : zqtestDrive_controls);
}

ZQ_NATIVE_EXPORT void zqtestDrive_waitUntilTaskDone(zqvorexPlugin_Task_undefined*, double, zqerr_Status*) {}

// Fires, from a new thread of the plug-in, every event `eventId` of the named task `times`
// times (a done event once, with `code`), and returns once all fired: the count of events,
// or -1 when there is no such task.
ZQ_NATIVE_EXPORT int32_t zqtestDrive_testFire(const char* taskName, int32_t eventId, uint32_t times, int32_t code) {
  bool found = false;
  std::vector<DriveEvent> events = takeEvents(taskName ? taskName : "", eventId, &found);
  if (!found) return -1;
  std::thread device([&] {
    for (const DriveEvent& event : events) fireEvent(event, times, code);
  });
  device.join();
  for (const DriveEvent& event : events) releaseEvent(event);
  return static_cast<int32_t>(events.size());
}

ZQ_NATIVE_EXPORT void zqtestDrive_testFireStorm(int32_t on) { storm.set(on != 0); }

ZQ_NATIVE_EXPORT void* zqtestDrive_testTakeEvent(const char* taskName, int32_t eventId) {
  std::vector<DriveEvent> events = takeEvents(taskName ? taskName : "", eventId);
  for (size_t i = 1; i < events.size(); ++i) releaseEvent(events[i]);
  if (events.empty()) return nullptr;
  count(zqtestDrive_eventRefs, -1);  // the caller's reference now, not the plug-in's
  return events.front().object;
}

}  // extern "C"

ZQTEST_DRIVE_SWITCH(testFireStorm);
ZQTEST_DRIVE_SWITCH(testTakeEvent);
ZQTEST_DRIVE_OPERATION(registerDoneEvent);
ZQTEST_DRIVE_OPERATION(registerEveryNSamplesEvent);
ZQTEST_DRIVE_OPERATION(registerSignalEvent);
ZQTEST_DRIVE_OPERATION(unregisterEvent);
ZQTEST_DRIVE_OPERATION(controlTask);
ZQTEST_DRIVE_OPERATION(waitUntilTaskDone);
ZQTEST_DRIVE_SWITCH(testFire);

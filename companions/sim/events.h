// The events of a task: what the application registered (every N samples into or out of the
// buffer, done, a signal), and the task's event thread, which sleeps until the next event is
// due on the device's timeline, fires it through the library's event object with no lock of
// the plug-in held, and sleeps again. A callback may call back into the task: read, stop, clear.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "zqgopher_boundary.h"

namespace zqsim {

class SimTask;

struct Registration {
  uint64_t token = 0;
  int32_t eventId =
      0;  // val::kEventDone, kEventAcquiredIntoBuffer, kEventTransferredFromBuffer, kEventSignal
  uint32_t samples = 0;                   // N of every N samples
  int32_t signal = 0;                     // the signal of a signal event
  zqgopher_IEventBase* object = nullptr;  // the library's event object; one reference is the plug-in's
  uint64_t run = 0;                       // the run the counts below belong to
  uint64_t fired = 0;  // events (multiples of N, signal occurrences) told so far in that run
  bool doneFired = false;
};

// One pending call of an event object, made outside every lock.
struct Firing {
  zqgopher_IEventBase* object = nullptr;
  int32_t eventId = 0;
  uint32_t count = 0;
  int32_t code = 0;  // a done event's status
};

void addReference(zqgopher_IEventBase* object);
void releaseReference(zqgopher_IEventBase* object);
void fire(const Firing& firing);

// The thread of one task. It holds the task while it runs, so that a callback that clears the
// task does not pull the task from under it.
class EventPump {
 public:
  EventPump() = default;
  ~EventPump();
  EventPump(const EventPump&) = delete;
  EventPump& operator=(const EventPump&) = delete;
  // Starts the thread once.
  void ensureRunning(const std::shared_ptr<SimTask>& task);
  // Ends the thread: joins it, or lets it finish on its own when called from it.
  void finish();
  bool onPumpThread() const { return std::this_thread::get_id() == thread_.get_id(); }

 private:
  std::thread thread_;
};

}  // namespace zqsim

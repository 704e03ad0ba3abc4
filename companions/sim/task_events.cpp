#include "task_events.h"

#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;

bool isInput(int32_t kind) { return kind == kAI || kind == kDI || kind == kCI; }

bool supported(const SimTask& task, int32_t eventId, int32_t signal, const char** why) {
  const int32_t kind = task.kind();
  const bool timed = task.settingI32(Vorex_SampTimingType) == kSampClk;
  switch (eventId) {
    case kEventDone:
      return true;
    case kEventAcquiredIntoBuffer:
      *why = "every N samples acquired into the buffer needs a sample-clocked input task";
      return isInput(kind) && timed;
    case kEventTransferredFromBuffer:
      *why = "every N samples transferred from the buffer needs a sample-clocked output task";
      return kind == kAO && timed;
    case kEventSignal:
      if (signal == kSignalSampleClock || signal == kSignalSampleComplete) {
        *why = "the sample clock signal needs a sample-clocked task";
        return timed;
      }
      if (signal == kSignalCounterOutput) {
        *why = "the counter output signal needs a counter output task";
        return kind == kCO;
      }
      *why = "the device raises no such signal";
      return false;
    default:
      *why = "the device raises no such event";
      return false;
  }
}

}  // namespace

uint64_t registerEvent(SimTask& task, int32_t eventId, uint32_t samples, int32_t signal,
                       zqgopher_IEventBase* object, zqerr_Status* status) {
  if (!isOpen(status)) return 0;
  if (!object) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  std::lock_guard<std::mutex> guard(task.mutex);
  const char* why = "";
  if (!supported(task, eventId, signal, &why)) {
    SIM_FAIL(
        status, nZQMDEV::kErrorEventNotSupported,
        Items().i32(usage::kEventType, eventId == kEventSignal ? signal : eventId).text(usage::kDetail, why));
    return 0;
  }
  if ((eventId == kEventAcquiredIntoBuffer || eventId == kEventTransferredFromBuffer) && samples == 0) {
    SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
             Items()
                 .u32(usage::kValueRequested, samples)
                 .u32(usage::kMinimum, 1)
                 .text(usage::kDetail, "N samples"));
    return 0;
  }
  Registration r;
  r.token = task.nextToken++;
  r.eventId = eventId;
  r.samples = samples;
  r.signal = signal;
  r.object = object;
  addReference(object);
  // An event registered while the task runs counts from the present.
  if (task.running && task.run) {
    r.run = task.run->id;
    const uint64_t progress = task.progress();
    r.fired = eventId == kEventSignal ? progress : samples ? progress / samples : 0;
  }
  task.registrations.push_back(r);
  if (task.running) task.pump.ensureRunning(task.shared_from_this());
  task.changed.notify_all();
  return r.token;
}

void unregisterEvent(SimTask& task, uint64_t token, zqerr_Status* status) {
  if (!isOpen(status)) return;
  zqgopher_IEventBase* object = nullptr;
  {
    std::lock_guard<std::mutex> guard(task.mutex);
    auto it = std::find_if(task.registrations.begin(), task.registrations.end(),
                           [&](const Registration& r) { return r.token == token; });
    if (it == task.registrations.end()) {
      SIM_FAIL(status, nZQMDEV::kErrorUnknownEventToken, Items().u64("kUsageTypeEventToken", token));
      return;
    }
    object = it->object;
    task.registrations.erase(it);
  }
  task.changed.notify_all();
  releaseReference(object);
}

}  // namespace zqsim

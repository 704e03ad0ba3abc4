// The absolute-time accessors: twelve functions of four families that can be set, and four
// timestamps that can only be read. The time is traced as "timestamp", 16 bytes, never with the
// out-pointer as a parameter.
#include "zqcai_rd_mbcs.h"

#include "attributes/absolute_time.h"
#include "frame/export.h"
#include "frame/task_holder.h"
#include "lasterror/last_error.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "tracing/trace.h"

namespace {

using zqvorexRedir::ITask;

// Opens the trace record with "taskHandle"; `more` adds what follows it.
template <class More>
void traceParams(zqtrace::TraceCall& trace, TaskHandle handle, More&& more) {
  if (!trace) return;
  trace.param("taskHandle", zqtrace::kPointer, handle);
  more();
  trace.endParams();
}

// The frame around `work(task, status)`, which runs only on a good status and a task.
template <class Work>
int32_t timeFrame(zqtrace::TraceCall& trace, TaskHandle handle, const VorexAbsoluteTime* out, Work&& work) {
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status) && task) {
    try {
      work(*task.get(), &status);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (out && trace) {
    const VorexAbsoluteTime copy = *out;
    trace.retTime("timestamp", copy);
  }
  trace.retval(status.code);
  return status.code;
}

int32_t getTime(const char* function, int32_t id, TaskHandle handle, VorexAbsoluteTime* timestamp) {
  zqtrace::TraceCall trace(function);
  traceParams(trace, handle, [] {});
  return timeFrame(trace, handle, timestamp, [&](ITask& task, zqerr_Status* status) {
    if (!timestamp) {
      ZQ_FAIL(status, kChandwrittenattributesNullTimestamp);
      return;
    }
    nZQCAI100::getAbsoluteTime(task, id, timestamp, status);
  });
}

int32_t setTime(const char* function, int32_t id, TaskHandle handle, VorexAbsoluteTime timestamp) {
  zqtrace::TraceCall trace(function);
  traceParams(trace, handle, [&] { trace.paramTime("timestamp", timestamp); });
  return timeFrame(trace, handle, nullptr, [&](ITask& task, zqerr_Status* status) {
    nZQCAI100::setAbsoluteTime(task, id, &timestamp, status);
  });
}

int32_t resetTime(const char* function, int32_t id, TaskHandle handle) {
  zqtrace::TraceCall trace(function);
  traceParams(trace, handle, [] {});
  return timeFrame(trace, handle, nullptr,
                   [&](ITask& task, zqerr_Status* status) { nZQCAI100::resetAbsoluteTime(task, id, status); });
}

}  // namespace

#define ZQ_TIME_GET(base, id)                                                   \
  ZQ_EXPORT int32 VorexGet##base(TaskHandle task, VorexAbsoluteTime* timestamp) { \
    return getTime("VorexGet" #base, id, task, timestamp);                        \
  }
#define ZQ_TIME_SET_RESET(base, id)                                              \
  ZQ_EXPORT int32 VorexSet##base(TaskHandle task, VorexAbsoluteTime timestamp) { \
    return setTime("VorexSet" #base, id, task, timestamp);                       \
  }                                                                              \
  ZQ_EXPORT int32 VorexReset##base(TaskHandle task) { return resetTime("VorexReset" #base, id, task); }

ZQ_TIME_GET(ArmStartTrigTrigWhen, Vorex_TimeArmStartTrigWhen)
ZQ_TIME_SET_RESET(ArmStartTrigTrigWhen, Vorex_TimeArmStartTrigWhen)
ZQ_TIME_GET(SyncPulseTimeWhen, Vorex_SyncPulseTimeWhen)
ZQ_TIME_SET_RESET(SyncPulseTimeWhen, Vorex_SyncPulseTimeWhen)
ZQ_TIME_GET(StartTrigTrigWhen, Vorex_TimeStartTrigWhen)
ZQ_TIME_SET_RESET(StartTrigTrigWhen, Vorex_TimeStartTrigWhen)
ZQ_TIME_GET(FirstSampClkWhen, Vorex_FirstSampClkWhen)
ZQ_TIME_SET_RESET(FirstSampClkWhen, Vorex_FirstSampClkWhen)
ZQ_TIME_GET(StartTrigTimestampVal, Vorex_TimestampStartTrigVal)
ZQ_TIME_GET(RefTrigTimestampVal, Vorex_TimestampRefTrigVal)
ZQ_TIME_GET(FirstSampTimestampVal, Vorex_FirstSampTimestampVal)
ZQ_TIME_GET(ArmStartTrigTimestampVal, Vorex_TimestampArmStartTrigVal)

// What every read and write of samples shares: the frame of the call (trace record, status,
// the task of the handle, the last-error recorder, the guard that keeps exceptions inside),
// the trace code of an array and the layout a plug-in is told.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/task_holder.h"
#include "lasterror/last_error.h"
#include "status/exceptions.h"
#include "task/itask.h"
#include "tracing/trace.h"
#include "zqvorex_plugin.h"

namespace zqframe {

// The trace code of an array of `Element`.
template <class Element>
constexpr int32_t arrayCode() {
  if constexpr (std::is_same_v<Element, double>)
    return zqtrace::kF64Array;
  else if constexpr (std::is_same_v<Element, uint32_t>)
    return zqtrace::kU32Array;
  else if constexpr (std::is_same_v<Element, int32_t>)
    return zqtrace::kI32Array;
  else if constexpr (std::is_same_v<Element, uint16_t>)
    return zqtrace::kU16Array;
  else if constexpr (std::is_same_v<Element, int16_t>)
    return zqtrace::kI16Array;
  else {
    static_assert(std::is_same_v<Element, uint8_t>, "no trace code for this element");
    return zqtrace::kU8Array;
  }
}

// Any non-zero mode counts as grouped by scan number.
inline zqvorexPlugin_ReadLayout layoutOf(int32_t mode) { return {mode != 0 ? 1u : 0u, 0}; }

// Runs one data call: `params` writes the parameter records, `body` does the work with the
// task (null after a bad handle) and `returns` writes the out-parameters before "retval".
template <class Params, class Body, class Returns>
int32_t dataCallFrame(const char* name, TaskHandle handle, Params&& params, Body&& body, Returns&& returns) {
  using zqvorexRedir::ITask;
  zqtrace::TraceCall trace(name);
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, handle);
    params(trace);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  try {
    body(task.get(), &status);
  } catch (...) {
    zqerr::convertCurrentException(&status);
  }
  if (trace) returns(trace);
  trace.retval(status.code);
  return status.code;
}

}  // namespace zqframe

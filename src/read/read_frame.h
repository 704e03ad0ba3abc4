// The frame every read shares: trace record, status, the task of the handle, the last-error
// recorder, and the guard that keeps exceptions inside the call.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/task_holder.h"
#include "lasterror/last_error.h"
#include "read/read_checks.h"
#include "status/exceptions.h"
#include "tracing/trace.h"

namespace zqread {

using zqframe::TaskHandle;

// Names of one read function's trace record: the function and the parameters that differ
// between members of a path. A null `modeParam` means the function has no fillMode.
struct ReadInfo {
  const char* name;
  const char* modeParam = nullptr;
  const char* firstArray = "readArray";
  const char* secondArray = nullptr;
  // The return records of the two outputs of a pair scalar: "*" and the parameter's name.
  const char* firstOut = nullptr;
  const char* secondOut = nullptr;
};

// The trace code of an array of `Element`.
template <class Element>
constexpr int32_t arrayCode() {
  if constexpr (std::is_same_v<Element, double>) return zqtrace::kF64Array;
  else if constexpr (std::is_same_v<Element, uint32_t>) return zqtrace::kU32Array;
  else if constexpr (std::is_same_v<Element, int32_t>) return zqtrace::kI32Array;
  else if constexpr (std::is_same_v<Element, uint16_t>) return zqtrace::kU16Array;
  else if constexpr (std::is_same_v<Element, int16_t>) return zqtrace::kI16Array;
  else {
    static_assert(std::is_same_v<Element, uint8_t>, "no trace code for this element");
    return zqtrace::kU8Array;
  }
}

// The leading parameters of a vector read: the count, the timeout and the mode when there is one.
inline void traceCountAndMode(zqtrace::TraceCall& trace, const ReadInfo& info, int32_t numSampsPerChan,
                              double timeout, int32_t mode) {
  trace.paramNamed("numSampsPerChan", zqtrace::Literals::kSampsPerChan, numSampsPerChan);
  trace.param("timeout", zqtrace::kF64, timeout);
  if (info.modeParam) trace.paramNamed(info.modeParam, zqtrace::Literals::kGrouping, mode);
}

// Runs one read: `params` writes the parameter records, `body` does the work with the task
// (null after a bad handle) and `returns` writes the out-parameters before "retval".
template <class Params, class Body, class Returns>
int32_t readFrame(const ReadInfo& info, TaskHandle handle, Params&& params, Body&& body, Returns&& returns) {
  zqtrace::TraceCall trace(info.name);
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, handle);
    params(trace);
    trace.endParams();
  }
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
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

}  // namespace zqread

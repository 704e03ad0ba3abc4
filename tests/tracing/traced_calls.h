// Exported-function shapes written the way the library's frames trace them, small enough to
// see each record at a glance. They stand in for the real exports in these tests.
#pragma once

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "tracing/trace.h"

namespace zqtest {

using namespace zqtrace;

inline constexpr int32_t kNullHandle = -200230;

// A scalar Get: "taskHandle", "data"; "*data" and "retval". Reports its cookie.
inline int32_t tracedGetF64(void* task, double* data, Cookie* cookie = nullptr) {
  TraceCall trace("VorexGetAIMax");
  if (cookie) *cookie = trace.cookie();
  if (trace) {
    trace.param("taskHandle", kPointer, task);
    trace.param("data", kF64AttributePointer, data);
    trace.endParams();
  }
  int32_t code = task ? 0 : kNullHandle;
  if (data) *data = code < 0 ? 0.0 : 2.5;
  if (trace) {
    if (data) trace.ret("*data", kF64Attribute, *data);
    trace.retval(code);
  }
  return code;
}

// A string Get with a channel: a null buffer or size 0 asks for the size.
inline int32_t tracedGetString(void* task, const char* channel, char* data, uint32_t bufferSize) {
  static constexpr char kValue[] = "Dev1/ai0";
  TraceCall trace("VorexGetAICustomScaleName");
  if (trace) {
    trace.param("taskHandle", kPointer, task);
    trace.paramText("channel", channel);
    if (data)
      trace.param("data", kTextBuffer, data);
    else
      trace.param("data", kPointer, data);
    trace.param("bufferSize", kSize, bufferSize);
    trace.endParams();
  }
  int32_t size = static_cast<int32_t>(sizeof kValue);
  if (!data || bufferSize == 0) {
    trace.retSize(size);
    return size;
  }
  int32_t code = bufferSize < sizeof kValue ? -200228 : 0;
  if (code == 0) std::memcpy(data, kValue, sizeof kValue);
  if (trace) {
    if (code == 0) trace.retText("data", data);
    trace.retval(code);
  }
  return code;
}

// A body that throws after the parameters; the guard ends the record.
inline int32_t tracedThrowing(void* task) {
  TraceCall trace("VorexClearTask");
  trace.param("taskHandle", kPointer, task);
  trace.endParams();
  throw std::runtime_error("body failed");
}

// A wrapper with its own record around a traced call.
inline int32_t tracedTaskControl(void* task, int32_t action) {
  TraceCall trace("VorexTaskControl");
  trace.param("taskHandle", kPointer, task);
  trace.paramNamed("action", Literals::kTaskAction, action);
  trace.endParams();
  trace.retval(0);
  return 0;
}

inline int32_t tracedStartTask(void* task) {
  TraceCall trace("VorexStartTask");
  trace.param("taskHandle", kPointer, task);
  trace.endParams();
  int32_t code = tracedTaskControl(task, 0);
  trace.retval(code);
  return code;
}

}  // namespace zqtest

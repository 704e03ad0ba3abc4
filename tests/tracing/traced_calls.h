// Exported-function shapes written the way the library's frames trace them, small enough to
// see each record at a glance. They stand in for the real exports in these tests.
#pragma once

#include <cstdint>

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

}  // namespace zqtest

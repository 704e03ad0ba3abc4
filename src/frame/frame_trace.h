// The trace records of the accessor frames: the parameters in order, and the returns.
#pragma once

#include "frame/task_holder.h"
#include "frame/type_classes.h"
#include "tracing/trace.h"

namespace zqframe {

// "taskHandle", then the list parameter when the accessor has one.
inline void traceHead(zqtrace::TraceCall& trace, const AccessorInfo& info, TaskHandle handle,
                      const char* channel) {
  trace.param("taskHandle", zqtrace::kPointer, handle);
  if (info.channelParam) trace.paramText(info.channelParam, channel);
}

template <class Class>
void traceValueParam(zqtrace::TraceCall& trace, const AccessorInfo& info, typename Class::Value value) {
  if constexpr (enumPair<Class>())
    trace.paramEnum("data", info.attributeId, value);
  else
    trace.param("data", Class::kValue, value);
}

// "*data" when the pointer is not null, then "retval".
template <class Class>
void traceGetReturns(zqtrace::TraceCall& trace, const AccessorInfo& info, const typename Class::Value* data,
                     int32_t code) {
  if (data) {
    if constexpr (enumPair<Class>())
      trace.retEnum("*data", info.attributeId, *data);
    else
      trace.ret("*data", Class::kValue, *data);
  }
  trace.retval(code);
}

}  // namespace zqframe
